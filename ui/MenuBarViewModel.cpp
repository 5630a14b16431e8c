#include "MenuBarViewModel.h"

#include <QQmlEngine>

#include "ShellEngine.h"
#include "menubar/MenuBarTexts.h"

namespace vantrelle {

namespace {

QString text(std::string_view value) {
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

std::vector<ChoiceListModel::Row> rowsOf(const std::vector<MenuBarIcon>& icons,
                                         const QHash<QString, QString>& sources) {
    std::vector<ChoiceListModel::Row> rows;
    for (const auto& icon : icons) {
        const QString id = QString::fromStdString(icon.id);
        rows.push_back({id,
                        QString::fromStdString(icon.label),
                        sources.value(id),
                        QString::fromStdString(icon.appName),
                        {},
                        icon.isHidden});
    }
    return rows;
}

}  // namespace

MenuBarViewModel::MenuBarViewModel(MenuBarIcons& icons, std::function<void()> collapse)
    : m_icons(icons), m_collapse(std::move(collapse)) {
    m_connection = m_icons.changed.connect([this] {
        refreshRows();
        Q_EMIT changed();
    });
    refreshRows();
}

MenuBarViewModel* MenuBarViewModel::create(QQmlEngine* engine, QJSEngine*) {
    auto* model = ShellEngine::provide(engine, &ShellEngine::ViewModels::menuBar);
    // The view draws the pictures through "image://menubar/…".
    if (model && !engine->imageProvider(QStringLiteral("menubar")))
        engine->addImageProvider(QStringLiteral("menubar"), model->makeImageProvider());
    return model;
}

QString MenuBarViewModel::status() const {
    return m_icons.status() ? QString::fromStdString(*m_icons.status()) : QString();
}

QString MenuBarViewModel::nothingHidden() {
    return text(MenuBarTexts::kNothingHidden);
}
QString MenuBarViewModel::noIcons() {
    return text(MenuBarTexts::kNoIcons);
}
QString MenuBarViewModel::noIconsDetail() {
    return text(MenuBarTexts::kNoIconsDetail);
}
QString MenuBarViewModel::hiddenHeading() {
    return text(MenuBarTexts::kHiddenHeading);
}
QString MenuBarViewModel::visibleHeading() {
    return text(MenuBarTexts::kVisibleHeading);
}
QString MenuBarViewModel::noWatcher() {
    return text(MenuBarTexts::kNoWatcher);
}
QString MenuBarViewModel::noWatcherDetail() {
    return text(MenuBarTexts::kNoWatcherDetail);
}
QString MenuBarViewModel::checkAgain() {
    return text(MenuBarTexts::kCheckAgain);
}

void MenuBarViewModel::setShown(bool shown) {
    if (shown == m_shown) return;
    m_shown = shown;
    m_icons.setActive(shown);
}

void MenuBarViewModel::open(const QString& id) {
    const std::string wanted = id.toStdString();
    for (const auto& icon : m_icons.icons()) {
        if (icon.id == wanted) {
            m_icons.open(icon, m_collapse);
            return;
        }
    }
}

void MenuBarViewModel::refreshRows() {
    const auto sources = MenuBarIconProvider::update(*m_pictures, m_icons.icons());
    m_hidden.setRows(rowsOf(m_icons.hidden(), sources));
    m_visible.setRows(rowsOf(m_icons.visible(), sources));
}

}  // namespace vantrelle
