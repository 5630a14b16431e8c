#include "notes/NotesJson.h"

#include <nlohmann/json.hpp>

#include "notes/Uuid.h"
#include "support/JsonDepth.h"

namespace vantrelle {

namespace NotesJson {

namespace {

using Json = nlohmann::ordered_json;

constexpr double kReferenceDate = 978'307'200.0;

double stored(Date date) {
    return date.seconds - kReferenceDate;
}

// Text that isn't valid UTF-8 (an old file's bytes) is written with replacement characters rather
// than refused, so a save never fails on what the user typed.
std::string dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<Json> parseArray(std::string_view text) {
    if (exceedsJsonDepth(text, kMaxJsonDepth)) return std::nullopt;
    Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded() || !json.is_array()) return std::nullopt;
    return json;
}

const Json* field(const Json& object, const char* name) {
    const auto it = object.find(name);
    return it == object.end() ? nullptr : &*it;
}

std::optional<std::string> stringField(const Json& object, const char* name) {
    const Json* value = field(object, name);
    if (!value || !value->is_string()) return std::nullopt;
    return value->get<std::string>();
}

std::optional<Date> dateField(const Json& object, const char* name) {
    const Json* value = field(object, name);
    if (!value || !value->is_number()) return std::nullopt;
    return Date{value->get<double>() + kReferenceDate};
}

std::optional<std::string> idField(const Json& object) {
    const auto text = stringField(object, "id");
    return text ? Uuid::normalized(*text) : std::nullopt;
}

std::optional<Note> decodeNote(const Json& object) {
    if (!object.is_object()) return std::nullopt;
    auto id = idField(object);
    auto body = stringField(object, "body");
    const auto createdAt = dateField(object, "createdAt");
    const auto updatedAt = dateField(object, "updatedAt");
    if (!id || !body || !createdAt || !updatedAt) return std::nullopt;
    return Note{std::move(*id), std::move(*body), *createdAt, *updatedAt};
}

std::optional<TodoItem> decodeTodo(const Json& object) {
    if (!object.is_object()) return std::nullopt;
    auto id = idField(object);
    auto title = stringField(object, "title");
    const Json* isDone = field(object, "isDone");
    const auto createdAt = dateField(object, "createdAt");
    if (!id || !title || !isDone || !isDone->is_boolean() || !createdAt) return std::nullopt;
    TodoItem item{std::move(*id), std::move(*title), isDone->get<bool>(), *createdAt, std::nullopt};
    // A null stands for none, as an encoder that writes empty optionals would put it.
    if (const Json* completed = field(object, "completedAt"); completed && !completed->is_null()) {
        if (!completed->is_number()) return std::nullopt;
        item.completedAt = dateField(object, "completedAt");
    }
    return item;
}

template <typename Record, typename Decode>
std::optional<std::vector<Record>> decodeAll(std::string_view text, Decode decode) {
    const auto json = parseArray(text);
    if (!json) return std::nullopt;
    std::vector<Record> records;
    records.reserve(json->size());
    for (const Json& element : *json) {
        auto record = decode(element);
        if (!record) return std::nullopt;
        records.push_back(std::move(*record));
    }
    return records;
}

}  // namespace

std::string encodeNotes(const std::vector<Note>& notes) {
    Json array = Json::array();
    for (const Note& note : notes) {
        array.push_back({{"id", note.id},
                         {"body", note.body},
                         {"createdAt", stored(note.createdAt)},
                         {"updatedAt", stored(note.updatedAt)}});
    }
    return dump(array);
}

std::optional<std::vector<Note>> decodeNotes(std::string_view text) {
    return decodeAll<Note>(text, decodeNote);
}

std::string encodeTodos(const std::vector<TodoItem>& items) {
    Json array = Json::array();
    for (const TodoItem& item : items) {
        Json object = {{"id", item.id},
                       {"title", item.title},
                       {"isDone", item.isDone},
                       {"createdAt", stored(item.createdAt)}};
        if (item.completedAt) object["completedAt"] = stored(*item.completedAt);
        array.push_back(std::move(object));
    }
    return dump(array);
}

std::optional<std::vector<TodoItem>> decodeTodos(std::string_view text) {
    return decodeAll<TodoItem>(text, decodeTodo);
}

}  // namespace NotesJson

}  // namespace vantrelle
