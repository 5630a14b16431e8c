#pragma once

#include <filesystem>

#include "support/MemoryDefaultsStore.h"

namespace vantrelle {

// The user defaults as one JSON object on disk. Every write replaces the file atomically. A file that
// cannot be parsed loads as empty and stays untouched until the next write, so a hand edit gone wrong
// costs nothing until something is saved.
class JsonDefaultsStore final : public MemoryDefaultsStore {
public:
    explicit JsonDefaultsStore(std::filesystem::path file);

    [[nodiscard]] const std::filesystem::path& file() const { return m_file; }

    // The JSON text for a set of values, and back; exposed for tests of the encoding.
    [[nodiscard]] static std::string encode(const std::map<std::string, DefaultsValue, std::less<>>& values);
    [[nodiscard]] static std::optional<std::map<std::string, DefaultsValue, std::less<>>> decode(
        std::string_view text);

protected:
    void changed() override;

private:
    std::filesystem::path m_file;
};

}  // namespace vantrelle
