#include "fakes/TempDir.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vantrelle::testing {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vantrelle-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    m_path = pattern;
}

TempDir::~TempDir() {
    std::error_code error;
    std::filesystem::remove_all(m_path, error);
}

std::filesystem::path TempDir::write(std::string_view relative, std::string_view contents) const {
    const auto file = m_path / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << contents;
    return file;
}

std::string TempDir::read(std::string_view relative) const {
    std::ifstream in(m_path / relative, std::ios::binary);
    std::ostringstream buffer;
    buffer << in.rdbuf();
    return buffer.str();
}

std::vector<std::string> fileNamesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::filesystem::path> unreadableCopies(const std::filesystem::path& file) {
    std::vector<std::filesystem::path> copies;
    const std::string prefix = file.filename().string() + ".unreadable-";
    for (const auto& name : fileNamesIn(file.parent_path()))
        if (name.starts_with(prefix)) copies.push_back(file.parent_path() / name);
    return copies;
}

}  // namespace vantrelle::testing
