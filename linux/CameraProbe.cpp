#include "CameraProbe.h"

#include <unistd.h>

#include <charconv>
#include <string>

namespace vantrelle {

namespace {

bool isProcessFolder(const std::string& name, long* pid) {
    const auto* end = name.data() + name.size();
    auto [ptr, ec] = std::from_chars(name.data(), end, *pid);
    return ec == std::errc() && ptr == end;
}

}  // namespace

bool CameraProbe::anyCameraRunning() const {
    namespace fs = std::filesystem;
    // Most of the time there is no camera at all; then no process needs a look.
    bool anyDevice = false;
    std::error_code devError;
    for (fs::directory_iterator dev(m_devRoot, devError), devEnd; !devError && dev != devEnd;
         dev.increment(devError)) {
        if (dev->path().filename().string().starts_with("video")) {
            anyDevice = true;
            break;
        }
    }
    if (!anyDevice) return false;

    const long self = static_cast<long>(::getpid());
    std::error_code error;
    for (fs::directory_iterator process(m_procRoot, error), end; !error && process != end;
         process.increment(error)) {
        long pid = 0;
        if (!isProcessFolder(process->path().filename().string(), &pid) || pid == self) continue;
        std::error_code fdError;
        for (fs::directory_iterator fd(process->path() / "fd", fdError), fdEnd; !fdError && fd != fdEnd;
             fd.increment(fdError)) {
            std::error_code linkError;
            const auto target = fs::read_symlink(fd->path(), linkError);
            if (!linkError && target.string().starts_with("/dev/video")) return true;
        }
    }
    return false;
}

}  // namespace vantrelle

namespace vantrelle {

std::optional<bool> CameraProbe::canOpenACamera() const {
    namespace fs = std::filesystem;
    bool anyDevice = false;
    std::error_code error;
    for (fs::directory_iterator dev(m_devRoot, error), end; !error && dev != end; dev.increment(error)) {
        if (!dev->path().filename().string().starts_with("video")) continue;
        anyDevice = true;
        if (::access(dev->path().c_str(), R_OK | W_OK) == 0) return true;
    }
    if (!anyDevice) return std::nullopt;
    return false;
}

}  // namespace vantrelle
