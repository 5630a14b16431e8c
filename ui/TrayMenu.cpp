#include "TrayMenu.h"

#include <QFont>
#include <QKeySequence>
#include <QPainter>
#include <QPixmap>

#include "ShellModel.h"
#include "ShellTheme.h"
#include "app/StatusMenu.h"

namespace vantrelle {

namespace {

QIcon trayIcon() {
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QFont font(QString::fromUtf8(ShellTheme::kIconFont));
    font.setPixelSize(56);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(pixmap.rect(), Qt::AlignCenter, ShellModel::glyph(std::string(kStatusItemSymbol)));
    return QIcon(pixmap);
}

}  // namespace

TrayMenu::TrayMenu(std::vector<StatusMenuRow> rows) : m_rows(std::move(rows)) {
    for (const auto& row : m_rows) {
        if (row.isDivider) {
            m_menu.addSeparator();
            continue;
        }
        QAction* action = m_menu.addAction(QString::fromStdString(row.text));
        action->setEnabled(row.enabled);
        if (!row.shortcut.empty()) action->setShortcut(QKeySequence(QString::fromStdString(row.shortcut)));
        if (row.action) QObject::connect(action, &QAction::triggered, this, [fn = row.action] { fn(); });
    }
    m_icon.setIcon(trayIcon());
    m_icon.setToolTip(QString::fromUtf8(kStatusItemTitle));
    m_icon.setContextMenu(&m_menu);
    if (QSystemTrayIcon::isSystemTrayAvailable()) m_icon.show();
}

}  // namespace vantrelle
