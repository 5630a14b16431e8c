#pragma once

#include <filesystem>
#include <optional>

namespace vantrelle {

// A camera counts as running when another process holds a /dev/video* device open. Processes whose
// descriptors we may not read (other users') are passed over.
class CameraProbe {
public:
    explicit CameraProbe(std::filesystem::path procRoot = "/proc", std::filesystem::path devRoot = "/dev")
        : m_procRoot(std::move(procRoot)), m_devRoot(std::move(devRoot)) {}
    [[nodiscard]] bool anyCameraRunning() const;
    // Whether this user may open a camera: nothing when there is no /dev/video* at all, else true when
    // at least one of them can be read and written.
    [[nodiscard]] std::optional<bool> canOpenACamera() const;

private:
    std::filesystem::path m_procRoot;
    std::filesystem::path m_devRoot;
};

}  // namespace vantrelle
