#pragma once

#include <filesystem>

#include "platform/LoginItem.h"

namespace vantrelle {

// Launch at login through an XDG autostart entry, which every freedesktop session honours.
class XdgAutostart final : public LoginItem {
public:
    XdgAutostart(std::filesystem::path entry, std::filesystem::path executable)
        : m_entry(std::move(entry)), m_executable(std::move(executable)) {}

    [[nodiscard]] bool isEnabled() const override;
    bool setEnabled(bool enabled) override;

private:
    std::filesystem::path m_entry;
    std::filesystem::path m_executable;
};

}  // namespace vantrelle
