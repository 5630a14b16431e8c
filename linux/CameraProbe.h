#pragma once

#include <filesystem>

namespace vantrelle {

// A camera counts as running when another process holds a /dev/video* device open. Processes whose
// descriptors we may not read (other users') are passed over.
class CameraProbe {
public:
    explicit CameraProbe(std::filesystem::path procRoot = "/proc", std::filesystem::path devRoot = "/dev")
        : m_procRoot(std::move(procRoot)), m_devRoot(std::move(devRoot)) {}
    [[nodiscard]] bool anyCameraRunning() const;

private:
    std::filesystem::path m_procRoot;
    std::filesystem::path m_devRoot;
};

}  // namespace vantrelle
