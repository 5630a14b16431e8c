#include "support/FileErrors.h"

#include <sys/stat.h>

#include <cerrno>
#include <system_error>

namespace vantrelle {

std::string systemReason(int error) {
    return std::generic_category().message(error);
}

std::string notARegularFile(mode_t mode) {
    if (S_ISDIR(mode)) return "it is a folder, not a file (" + systemReason(EISDIR) + ")";
    if (S_ISFIFO(mode)) return "it is a named pipe, not a regular file";
    if (S_ISSOCK(mode)) return "it is a socket, not a regular file";
    if (S_ISCHR(mode) || S_ISBLK(mode)) return "it is a device, not a regular file";
    return "it is not a regular file";
}

}  // namespace vantrelle
