#pragma once

#include <filesystem>

#include "platform/Clock.h"
#include "support/MemoryDefaultsStore.h"
#include "support/StoreFile.h"

namespace vantrelle {

// The user defaults as one JSON object on disk. Every write replaces the file atomically. A file that
// cannot be parsed (a hand edit gone wrong) is moved aside with its contents and the store starts
// from the defaults. A value of a shape no setting writes is kept as it is in the file until the
// program sets or removes that key.
class JsonDefaultsStore final : public MemoryDefaultsStore {
public:
    explicit JsonDefaultsStore(std::filesystem::path file, const Clock& clock = SystemClock::shared());

    [[nodiscard]] const std::filesystem::path& file() const { return m_file.path(); }

    void set(std::string_view key, DefaultsValue value) override;
    void remove(std::string_view key) override;

    // The JSON text for a set of values, and back; exposed for tests of the encoding.
    [[nodiscard]] static std::string encode(const std::map<std::string, DefaultsValue, std::less<>>& values);
    [[nodiscard]] static std::optional<std::map<std::string, DefaultsValue, std::less<>>> decode(
        std::string_view text);

    // The values saved in `file`, copied into `target`: for one-shot commands that read the user's
    // settings and never write them. Nothing is copied from a missing or unreadable file.
    static void copySaved(const std::filesystem::path& file, DefaultsStore& target);

protected:
    void changed() override;

private:
    StoreFile m_file;
    // Keys whose values have a shape no setting writes, as they were in the file: written back as they
    // came until the program sets or removes the key.
    std::map<std::string, std::string, std::less<>> m_foreign;
};

}  // namespace vantrelle
