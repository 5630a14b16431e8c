#pragma once

#include <filesystem>

namespace vantrelle {

// A camera counts as running when another process holds a /dev/video* device open. Processes whose
// descriptors we may not read (other users') are passed over.
class CameraProbe {
public:
    explicit CameraProbe(std::filesystem::path procRoot = "/proc") : m_procRoot(std::move(procRoot)) {}
    [[nodiscard]] bool anyCameraRunning() const;

private:
    std::filesystem::path m_procRoot;
};

}  // namespace vantrelle
