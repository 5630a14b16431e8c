#include "FocusViewModel.h"

#include <QVariantMap>

#include "ShellEngine.h"
#include "focus/FocusFormat.h"

namespace vantrelle {

namespace {
QString text(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}
}  // namespace

FocusViewModel::FocusViewModel(PomodoroModel& pomodoro, QuickTimerModel& quick, StopwatchModel& stopwatch,
                               AppSettings& settings)
    : m_pomodoro(pomodoro), m_quick(quick), m_stopwatch(stopwatch), m_settings(settings) {
    m_pomodoroConnection = m_pomodoro.changed.connect([this] { Q_EMIT changed(); });
    m_quickConnection = m_quick.changed.connect([this] { Q_EMIT quickChanged(); });
    m_stopwatchConnection = m_stopwatch.changed.connect([this] { Q_EMIT stopwatchChanged(); });
}

FocusViewModel* FocusViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::focus);
}

QString FocusViewModel::mode() const {
    return text(rawValue(m_pomodoro.mode()));
}

QVariantList FocusViewModel::modes() const {
    QVariantList list;
    for (PomodoroMode m : kPomodoroModes) {
        list.append(QVariantMap{{QStringLiteral("raw"), text(rawValue(m))},
                                {QStringLiteral("title"), text(title(m))}});
    }
    return list;
}

QString FocusViewModel::status() const {
    return text(rawValue(m_pomodoro.status()));
}

QString FocusViewModel::statusText() const {
    return text(m_pomodoro.statusText());
}

QStringList FocusViewModel::todayBlocks() const {
    QStringList blocks;
    for (Date date : m_pomodoro.sessionsToday()) blocks.append(QString::fromStdString(clockTime(date)));
    return blocks;
}

QString FocusViewModel::quickStatus() const {
    switch (m_quick.status()) {
        case QuickTimerModel::Status::idle:
            return QStringLiteral("idle");
        case QuickTimerModel::Status::running:
            return QStringLiteral("running");
        case QuickTimerModel::Status::paused:
            return QStringLiteral("paused");
    }
    return {};
}

QString FocusViewModel::quickTime() const {
    return QString::fromStdString(QuickTimerModel::format(m_quick.remaining()));
}

QString FocusViewModel::stopwatchTime() const {
    return QString::fromStdString(StopwatchModel::format(m_stopwatch.elapsed()));
}

QStringList FocusViewModel::laps() const {
    QStringList laps;
    const auto& all = m_stopwatch.laps();
    for (std::size_t i = 0; i < all.size(); ++i) {
        laps.append(QStringLiteral("Lap %1  %2")
                        .arg(i + 1)
                        .arg(QString::fromStdString(StopwatchModel::format(all[i]))));
    }
    return laps;
}

void FocusViewModel::selectMode(const QString& raw) {
    if (auto m = pomodoroModeFromRaw(raw.toStdString())) m_pomodoro.setMode(*m);
}

void FocusViewModel::startPause() {
    switch (m_pomodoro.status()) {
        case PomodoroStatus::running:
            m_pomodoro.pause();
            break;
        case PomodoroStatus::paused:
            m_pomodoro.resume();
            break;
        case PomodoroStatus::idle: {
            const PomodoroMode m = m_pomodoro.mode();
            m_pomodoro.start(minutes(m, m_settings),
                             isBreak(m) ? PomodoroPhase::shortBreak : PomodoroPhase::focus);
            break;
        }
    }
}

void FocusViewModel::startCustom(int minutes) {
    if (minutes <= 0) return;
    m_settings.setCustomTimerMinutes(minutes);
    m_pomodoro.stop();
    m_pomodoro.setMode(PomodoroMode::custom);
    m_pomodoro.start(minutes, PomodoroPhase::focus);
}

void FocusViewModel::startQuick(int minutes) {
    if (minutes <= 0) return;
    m_quick.start(minutes * 60.0, QStringLiteral("%1 min").arg(minutes).toStdString());
}

void FocusViewModel::pauseResumeQuick() {
    if (m_quick.status() == QuickTimerModel::Status::running) {
        m_quick.pause();
    } else {
        m_quick.resume();
    }
}

void FocusViewModel::startPauseStopwatch() {
    if (m_stopwatch.isRunning()) {
        m_stopwatch.pause();
    } else {
        m_stopwatch.start();
    }
}

void FocusViewModel::lapOrResetStopwatch() {
    if (m_stopwatch.isRunning()) {
        m_stopwatch.lap();
    } else {
        m_stopwatch.reset();
    }
}

}  // namespace vantrelle
