#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <vector>

#include "app/StatusMenu.h"

namespace vantrelle {

// The status item: an icon in the system tray with the program's menu. Where the desktop has no tray,
// nothing shows and the program works on without it.
class TrayMenu final : public QObject {
public:
    explicit TrayMenu(std::vector<StatusMenuRow> rows);
    [[nodiscard]] bool isShown() const { return m_icon.isVisible(); }

private:
    std::vector<StatusMenuRow> m_rows;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
};

}  // namespace vantrelle
