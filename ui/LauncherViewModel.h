#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <functional>

#include "LauncherAppListModel.h"
#include "launcher/LauncherModel.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Launcher tile's face (`Launcher` in QML): the applications, and a click that starts one.
class LauncherViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Launcher)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::LauncherAppListModel* apps READ apps CONSTANT)
    Q_PROPERTY(QString emptyText READ emptyText CONSTANT)

public:
    // `onLaunched` runs after an application was asked to start: the notch folds away.
    LauncherViewModel(LauncherModel& model, std::function<void()> onLaunched);
    static LauncherViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] LauncherAppListModel* apps() { return &m_apps; }
    [[nodiscard]] static QString emptyText() {
        return QString::fromUtf8(LauncherModel::kEmptyText.data(),
                                 static_cast<qsizetype>(LauncherModel::kEmptyText.size()));
    }

    Q_INVOKABLE void launch(const QString& appId);

private:
    void refreshRows();

    LauncherModel& m_model;
    std::function<void()> m_onLaunched;
    LauncherAppListModel m_apps;
    Connection m_connection;
};

}  // namespace vantrelle
