#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <functional>

#include "ChoiceListModel.h"
#include "MenuBarIconProvider.h"
#include "menubar/MenuBarIcons.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Menu Bar tool's face (`MenuBar` in QML): the tray icons behind the notch and the others, and
// opening one. Rows: raw (the icon's id), title (its label), icon (its picture's source), detail (its
// program).
class MenuBarViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(MenuBar)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::ChoiceListModel* hidden READ hidden CONSTANT)
    Q_PROPERTY(vantrelle::ChoiceListModel* visible READ visible CONSTANT)
    Q_PROPERTY(bool hasWatcher READ hasWatcher NOTIFY changed)
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(QString nothingHidden READ nothingHidden CONSTANT)
    Q_PROPERTY(QString noIcons READ noIcons CONSTANT)
    Q_PROPERTY(QString noIconsDetail READ noIconsDetail CONSTANT)
    Q_PROPERTY(QString hiddenHeading READ hiddenHeading CONSTANT)
    Q_PROPERTY(QString visibleHeading READ visibleHeading CONSTANT)
    Q_PROPERTY(QString noWatcher READ noWatcher CONSTANT)
    Q_PROPERTY(QString noWatcherDetail READ noWatcherDetail CONSTANT)
    Q_PROPERTY(QString checkAgain READ checkAgain CONSTANT)
    Q_PROPERTY(int iconSide READ iconSide CONSTANT)

public:
    MenuBarViewModel(MenuBarIcons& icons, std::function<void()> collapse);
    static MenuBarViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] ChoiceListModel* hidden() { return &m_hidden; }
    [[nodiscard]] ChoiceListModel* visible() { return &m_visible; }
    [[nodiscard]] bool hasWatcher() const { return m_icons.trusted(); }
    [[nodiscard]] QString status() const;
    [[nodiscard]] static QString nothingHidden();
    [[nodiscard]] static QString noIcons();
    [[nodiscard]] static QString noIconsDetail();
    [[nodiscard]] static QString hiddenHeading();
    [[nodiscard]] static QString visibleHeading();
    [[nodiscard]] static QString noWatcher();
    [[nodiscard]] static QString noWatcherDetail();
    [[nodiscard]] static QString checkAgain();
    [[nodiscard]] static int iconSide() { return MenuBarIcons::kIconSide; }
    // Draws the pictures of this model's icons; the engine takes it.
    [[nodiscard]] MenuBarIconProvider* makeImageProvider() const {
        return new MenuBarIconProvider(m_pictures);
    }

    // The view says whether it is on screen; the icons are scanned while it is.
    Q_INVOKABLE void setShown(bool shown);
    Q_INVOKABLE void open(const QString& id);
    Q_INVOKABLE void requestAccess() { m_icons.requestAccess(); }

Q_SIGNALS:
    void changed();

private:
    void refreshRows();

    MenuBarIcons& m_icons;
    std::function<void()> m_collapse;
    ChoiceListModel m_hidden;
    ChoiceListModel m_visible;
    std::shared_ptr<MenuBarIconProvider::Store> m_pictures = std::make_shared<MenuBarIconProvider::Store>();
    Connection m_connection;
    bool m_shown = false;
};

}  // namespace vantrelle
