#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vantrelle::testing {

// A fresh folder under the system's temporary folder, removed with everything in it at the end.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

    // Writes a file below the folder, creating its parents.
    std::filesystem::path write(std::string_view relative, std::string_view contents) const;
    [[nodiscard]] std::string read(std::string_view relative) const;

private:
    std::filesystem::path m_path;
};

// The names in a folder, sorted.
std::vector<std::string> fileNamesIn(const std::filesystem::path& folder);
// The copies an unreadable `file` was moved aside to, beside it.
std::vector<std::filesystem::path> unreadableCopies(const std::filesystem::path& file);

}  // namespace vantrelle::testing
