#pragma once

#include <filesystem>
#include <string_view>

namespace vantrelle {

// Whether `file` was installed by the Debian package `package`: dpkg lists every file a package
// installed in <info>/<package>.list. A build run from its tree, or installed by hand, is not.
[[nodiscard]] bool installedByPackage(std::string_view package, const std::filesystem::path& file,
                                      const std::filesystem::path& info = "/var/lib/dpkg/info");

}  // namespace vantrelle
