#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "monitors/SystemStats.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The System Analytics view's face (`SystemStats` in QML). The figures move only while a view has
// called setActive(true).
class SystemStatsViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(SystemStats)
    QML_SINGLETON
    Q_PROPERTY(double cpu READ cpu NOTIFY changed)
    Q_PROPERTY(double memory READ memory NOTIFY changed)
    Q_PROPERTY(QString memoryText READ memoryText NOTIFY changed)
    Q_PROPERTY(double disk READ disk NOTIFY changed)
    Q_PROPERTY(QString diskText READ diskText NOTIFY changed)
    Q_PROPERTY(QString download READ download NOTIFY changed)
    Q_PROPERTY(QString upload READ upload NOTIFY changed)
    Q_PROPERTY(bool hasBattery READ hasBattery NOTIFY changed)
    Q_PROPERTY(double battery READ battery NOTIFY changed)
    Q_PROPERTY(bool charging READ charging NOTIFY changed)

public:
    explicit SystemStatsViewModel(SystemStats& stats);
    static SystemStatsViewModel* create(QQmlEngine* engine, QJSEngine*);

    // Fractions from 0 to 1, for gauges.
    [[nodiscard]] double cpu() const { return m_stats.figures().cpuPercent / 100.0; }
    [[nodiscard]] double memory() const { return m_stats.figures().memoryPercent / 100.0; }
    [[nodiscard]] double disk() const { return m_stats.figures().diskPercent / 100.0; }
    [[nodiscard]] double battery() const { return m_stats.figures().batteryPercent.value_or(0) / 100.0; }
    [[nodiscard]] QString memoryText() const;
    [[nodiscard]] QString diskText() const;
    [[nodiscard]] QString download() const;
    [[nodiscard]] QString upload() const;
    [[nodiscard]] bool hasBattery() const { return m_stats.figures().batteryPercent.has_value(); }
    [[nodiscard]] bool charging() const { return m_stats.figures().charging; }

    // The view and the tile each say whether they are on screen; the figures move while either is.
    // Repeated calls with the same value change nothing.
    Q_INVOKABLE void setViewShown(bool shown) { setShown(m_viewShown, shown); }
    Q_INVOKABLE void setTileShown(bool shown) { setShown(m_tileShown, shown); }

    // "1.5 GB", "820 KB": decimal units, as file managers show them.
    [[nodiscard]] static QString bytes(double count);

Q_SIGNALS:
    void changed();

private:
    void setShown(bool& flag, bool shown) {
        if (flag == shown) return;
        flag = shown;
        m_stats.setActive(shown);
    }

    SystemStats& m_stats;
    Connection m_connection;
    bool m_viewShown = false;
    bool m_tileShown = false;
};

}  // namespace vantrelle
