#include "fakes/TempDir.h"

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

}  // namespace vantrelle::testing
