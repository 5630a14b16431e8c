#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include "focus/PomodoroModel.h"
#include "focus/QuickTimerModel.h"
#include "focus/StopwatchModel.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Focus tool's face (`Focus` in QML): the focus timer with its modes and the choice after a block,
// today's blocks, the quick timer and the stopwatch. The models tick only while they run, so an idle
// view costs nothing.
class FocusViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Focus)
    QML_SINGLETON
    Q_PROPERTY(QString mode READ mode NOTIFY changed)
    Q_PROPERTY(QVariantList modes READ modes CONSTANT)
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(QString statusText READ statusText NOTIFY changed)
    Q_PROPERTY(QString timeString READ timeString NOTIFY changed)
    Q_PROPERTY(qreal progress READ progress NOTIFY changed)
    Q_PROPERTY(bool inBreak READ inBreak NOTIFY changed)
    Q_PROPERTY(bool awaitingChoice READ awaitingChoice NOTIFY changed)
    Q_PROPERTY(int sessionsToday READ sessionsToday NOTIFY changed)
    Q_PROPERTY(QStringList todayBlocks READ todayBlocks NOTIFY changed)
    Q_PROPERTY(int customMinutes READ customMinutes NOTIFY changed)
    Q_PROPERTY(QString quickStatus READ quickStatus NOTIFY quickChanged)
    Q_PROPERTY(QString quickTime READ quickTime NOTIFY quickChanged)
    Q_PROPERTY(QString quickLabel READ quickLabel NOTIFY quickChanged)
    Q_PROPERTY(qreal quickProgress READ quickProgress NOTIFY quickChanged)
    Q_PROPERTY(bool stopwatchRunning READ stopwatchRunning NOTIFY stopwatchChanged)
    Q_PROPERTY(QString stopwatchTime READ stopwatchTime NOTIFY stopwatchChanged)
    Q_PROPERTY(QStringList laps READ laps NOTIFY stopwatchChanged)

public:
    FocusViewModel(PomodoroModel& pomodoro, QuickTimerModel& quick, StopwatchModel& stopwatch,
                   AppSettings& settings);
    static FocusViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] QString mode() const;
    [[nodiscard]] QVariantList modes() const;
    [[nodiscard]] QString status() const;
    [[nodiscard]] QString statusText() const;
    [[nodiscard]] QString timeString() const { return QString::fromStdString(m_pomodoro.timeString()); }
    [[nodiscard]] qreal progress() const { return m_pomodoro.progress(); }
    [[nodiscard]] bool inBreak() const { return m_pomodoro.phase() == PomodoroPhase::shortBreak; }
    [[nodiscard]] bool awaitingChoice() const { return m_pomodoro.awaitingChoice(); }
    [[nodiscard]] int sessionsToday() const { return static_cast<int>(m_pomodoro.sessionsToday().size()); }
    [[nodiscard]] QStringList todayBlocks() const;
    [[nodiscard]] int customMinutes() const { return static_cast<int>(m_settings.customTimerMinutes()); }
    [[nodiscard]] QString quickStatus() const;
    [[nodiscard]] QString quickTime() const;
    [[nodiscard]] QString quickLabel() const { return QString::fromStdString(m_quick.label()); }
    [[nodiscard]] qreal quickProgress() const { return m_quick.progress(); }
    [[nodiscard]] bool stopwatchRunning() const { return m_stopwatch.isRunning(); }
    [[nodiscard]] QString stopwatchTime() const;
    [[nodiscard]] QStringList laps() const;

    Q_INVOKABLE void selectMode(const QString& raw);
    // Idle: starts the selected mode at its length; paused: resumes; running: pauses.
    Q_INVOKABLE void startPause();
    Q_INVOKABLE void stop() { m_pomodoro.stop(); }
    Q_INVOKABLE void startBreak() { m_pomodoro.startQueuedPhase(); }
    Q_INVOKABLE void keepWorking() { m_pomodoro.continueWorking(); }
    // A custom timer of `minutes`, remembered as the custom length.
    Q_INVOKABLE void startCustom(int minutes);
    Q_INVOKABLE void startQuick(int minutes);
    Q_INVOKABLE void pauseResumeQuick();
    Q_INVOKABLE void cancelQuick() { m_quick.cancel(); }
    Q_INVOKABLE void startPauseStopwatch();
    Q_INVOKABLE void lapOrResetStopwatch();

Q_SIGNALS:
    void changed();
    void quickChanged();
    void stopwatchChanged();

private:
    PomodoroModel& m_pomodoro;
    QuickTimerModel& m_quick;
    StopwatchModel& m_stopwatch;
    AppSettings& m_settings;
    Connection m_pomodoroConnection;
    Connection m_quickConnection;
    Connection m_stopwatchConnection;
};

}  // namespace vantrelle
