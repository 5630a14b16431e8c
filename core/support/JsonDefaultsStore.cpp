#include "support/JsonDefaultsStore.h"

#include <nlohmann/json.hpp>

#include "support/AtomicFile.h"
#include "support/Base64.h"
#include "support/DebugLog.h"
#include "support/JsonDepth.h"
#include "support/ReadFile.h"

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
            // All strings or all numbers; a mixed array is no shape the program writes.
            if (!json.empty() && json.front().is_number()) {
                std::vector<double> numbers;
                for (const auto& element : json) {
                    if (!element.is_number()) return std::nullopt;
                    numbers.push_back(element.get<double>());
                }
                return DefaultsValue(std::move(numbers));
            }
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

Json toObject(const std::map<std::string, DefaultsValue, std::less<>>& values) {
    Json object = Json::object();
    for (const auto& [key, value] : values) object[key] = toJson(value);
    return object;
}

}  // namespace

JsonDefaultsStore::JsonDefaultsStore(std::filesystem::path file, const Clock& clock)
    : m_file(std::move(file), "defaults", clock) {
    const auto text = m_file.read();
    if (!text) return;  // first run: nothing stored yet
    if (exceedsJsonDepth(*text, kMaxJsonDepth)) {
        m_file.setAside("it is nested deeper than " + std::to_string(kMaxJsonDepth) + " levels");
        return;
    }
    const Json json = Json::parse(*text, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object()) {
        m_file.setAside(json.is_discarded() ? "it isn't valid JSON" : "it isn't a JSON object");
        return;
    }
    for (const auto& [key, element] : json.items()) {
        if (auto value = fromJson(element)) {
            m_values.emplace(key, std::move(*value));
        } else {
            m_foreign.emplace(key, element.dump());
        }
    }
}

void JsonDefaultsStore::set(std::string_view key, DefaultsValue value) {
    {
        std::lock_guard lock(m_mutex);
        if (auto it = m_foreign.find(key); it != m_foreign.end()) m_foreign.erase(it);
    }
    MemoryDefaultsStore::set(key, std::move(value));
}

void JsonDefaultsStore::remove(std::string_view key) {
    {
        // A key holds a foreign value or a known one, never both; the base class never saw a foreign one.
        std::lock_guard lock(m_mutex);
        if (auto it = m_foreign.find(key); it != m_foreign.end()) {
            m_foreign.erase(it);
            changed();
            return;
        }
    }
    MemoryDefaultsStore::remove(key);
}

std::string JsonDefaultsStore::encode(const std::map<std::string, DefaultsValue, std::less<>>& values) {
    return toObject(values).dump(2) + "\n";
}

std::optional<std::map<std::string, DefaultsValue, std::less<>>> JsonDefaultsStore::decode(
    std::string_view text) {
    if (exceedsJsonDepth(text, kMaxJsonDepth)) return std::nullopt;
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
    Json object = toObject(m_values);
    for (const auto& [key, raw] : m_foreign) object[key] = Json::parse(raw, nullptr, false);
    if (const WriteResult written = m_file.write(object.dump(2) + "\n"); !written) {
        DebugLog::write([&] { return "defaults: " + written.error(); });
    }
}

void JsonDefaultsStore::copySaved(const std::filesystem::path& file, DefaultsStore& target) {
    const auto text = readWholeFile(file);
    if (!text) return;
    if (auto values = decode(*text)) {
        for (auto& [key, value] : *values) target.set(key, std::move(value));
    }
}

}  // namespace vantrelle
