#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "focus/DayProgressModel.h"
#include "wrapped/MileageShare.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Day Progress tile's face (`DayProgress` in QML): time left in the workday, its bar, today's
// cursor mileage and "Share".
class DayProgressViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(DayProgress)
    QML_SINGLETON
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString hours READ hours NOTIFY changed)
    Q_PROPERTY(QString percent READ percent NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY changed)
    Q_PROPERTY(QString mileage READ mileage NOTIFY changed)
    Q_PROPERTY(QString shareLabel READ shareLabel NOTIFY changed)

public:
    DayProgressViewModel(DayProgressModel& model, MileageShare& share);
    static DayProgressViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] QString headline() const { return QString::fromStdString(m_model.headline()); }
    [[nodiscard]] QString hours() const { return QString::fromStdString(m_model.hoursText()); }
    [[nodiscard]] QString percent() const { return QString::fromStdString(m_model.percentText()); }
    [[nodiscard]] double progress() const { return m_model.progress().fraction; }
    [[nodiscard]] QString mileage() const { return QString::fromStdString(m_model.mileageText()); }
    // "Share", and "Copied" from a share until the figures next move.
    [[nodiscard]] QString shareLabel() const {
        return m_copied ? QStringLiteral("Copied") : QStringLiteral("Share");
    }

    // The tile says whether it is on screen; the figures tick while it is.
    Q_INVOKABLE void setTileShown(bool shown) { m_model.setActive(shown); }
    Q_INVOKABLE void share();

Q_SIGNALS:
    void changed();

private:
    DayProgressModel& m_model;
    MileageShare& m_share;
    Connection m_connection;
    bool m_copied = false;
};

}  // namespace vantrelle
