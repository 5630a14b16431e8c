#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "TimeShareListModel.h"
#include "monitors/ScreenTimeTracker.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Screen Time view's face (`ScreenTime` in QML): today by application and by category, the
// application in front and the session figures.
class ScreenTimeViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(ScreenTime)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::TimeShareListModel* apps READ apps CONSTANT)
    Q_PROPERTY(vantrelle::TimeShareListModel* categories READ categories CONSTANT)
    Q_PROPERTY(QString total READ total NOTIFY changed)
    Q_PROPERTY(QString current READ current NOTIFY changed)
    Q_PROPERTY(QString averageSession READ averageSession NOTIFY changed)
    Q_PROPERTY(QString longestSession READ longestSession NOTIFY changed)

public:
    explicit ScreenTimeViewModel(ScreenTimeTracker& tracker);
    static ScreenTimeViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] TimeShareListModel* apps() { return &m_apps; }
    [[nodiscard]] TimeShareListModel* categories() { return &m_categories; }
    [[nodiscard]] QString total() const;
    [[nodiscard]] QString current() const;
    [[nodiscard]] QString averageSession() const;
    [[nodiscard]] QString longestSession() const;

Q_SIGNALS:
    void changed();

private:
    void refreshRows();

    ScreenTimeTracker& m_tracker;
    TimeShareListModel m_apps;
    TimeShareListModel m_categories;
    Connection m_connection;
};

}  // namespace vantrelle
