#include "support/JsonDefaultsStore.h"

#include <nlohmann/json.hpp>

#include "support/AtomicFile.h"
#include "support/Base64.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

using Json = nlohmann::json;
// Bytes have no JSON form of their own; they are stored as {"base64": "..."}.
constexpr const char* kBytesKey = "base64";

Json toJson(const DefaultsValue& value) {
    return std::visit(
        [](const auto& v) -> Json {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, Bytes>) {
                return Json{{kBytesKey, base64Encode(v)}};
            } else {
                return Json(v);
            }
        },
        value);
}

std::optional<DefaultsValue> fromJson(const Json& json) {
    switch (json.type()) {
        case Json::value_t::boolean:
            return DefaultsValue(json.get<bool>());
        case Json::value_t::number_integer:
            return DefaultsValue(json.get<std::int64_t>());
        case Json::value_t::number_unsigned: {
            const auto value = json.get<std::uint64_t>();
            if (value > static_cast<std::uint64_t>(INT64_MAX))
                return DefaultsValue(static_cast<double>(value));
            return DefaultsValue(static_cast<std::int64_t>(value));
        }
        case Json::value_t::number_float:
            return DefaultsValue(json.get<double>());
        case Json::value_t::string:
            return DefaultsValue(json.get<std::string>());
        case Json::value_t::array: {
            std::vector<std::string> strings;
            for (const auto& element : json) {
                if (!element.is_string()) return std::nullopt;
                strings.push_back(element.get<std::string>());
            }
            return DefaultsValue(std::move(strings));
        }
        case Json::value_t::object: {
            auto it = json.find(kBytesKey);
            if (json.size() != 1 || it == json.end() || !it->is_string()) return std::nullopt;
            auto bytes = base64Decode(it->get<std::string>());
            if (!bytes) return std::nullopt;
            return DefaultsValue(std::move(*bytes));
        }
        default:
            return std::nullopt;
    }
}

}  // namespace

JsonDefaultsStore::JsonDefaultsStore(std::filesystem::path file) : m_file(std::move(file)) {
    auto text = readWholeFile(m_file);
    if (!text) return;  // first run: nothing stored yet
    if (auto values = decode(*text)) {
        m_values = std::move(*values);
    } else {
        DebugLog::write([&] { return "defaults: unreadable " + m_file.string() + ", starting empty"; });
    }
}

std::string JsonDefaultsStore::encode(const std::map<std::string, DefaultsValue, std::less<>>& values) {
    Json object = Json::object();
    for (const auto& [key, value] : values) object[key] = toJson(value);
    return object.dump(2) + "\n";
}

std::optional<std::map<std::string, DefaultsValue, std::less<>>> JsonDefaultsStore::decode(
    std::string_view text) {
    Json json = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object()) return std::nullopt;
    std::map<std::string, DefaultsValue, std::less<>> values;
    for (const auto& [key, element] : json.items()) {
        // A value of a shape no setting ever writes is skipped; its setting falls back to the default.
        if (auto value = fromJson(element)) values.emplace(key, std::move(*value));
    }
    return values;
}

void JsonDefaultsStore::changed() {
    if (const WriteResult written = writeFileAtomically(m_file, encode(m_values)); !written) {
        DebugLog::write([&] { return "defaults: " + written.error(); });
    }
}

}  // namespace vantrelle
