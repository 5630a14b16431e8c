#pragma once

#include <QAbstractListModel>

#include "AIUsageViewModel.h"
#include "CalcViewModel.h"
#include "FocusViewModel.h"
#include "GuiApplication.h"
#include "calc/RatesService.h"
#include "fakes/FakeDesktopNotifications.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/FakeProcessTable.h"
#include "fakes/TempDir.h"
#include "focus/PomodoroNotifier.h"
#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {

// A role of a list model by the name the views use.
inline QVariant role(const QAbstractListModel& model, int row, const char* name) {
    return model.data(model.index(row), model.roleNames().key(name, -1));
}

// The view models most tools share, over real models on virtual time; `demo` is what the models get.
class ViewModelFixture : public OverlayFixture {
protected:
    explicit ViewModelFixture(bool demoMode = false) : demo(demoMode) {}

    const bool demo;
    QGuiApplication& app = guiApplication();  // before any member that needs it
    TempDir home;
    InlineQueueFactory queues;
    FakeProcessTable processes;
    AIUsageModel usage{AIUsageModel::Dependencies{environment, home.path(), scheduler, scheduler, queues,
                                                  processes, settings, activities, nullptr, true}};
    // The Claude Code settings file the alerts hook goes into.
    TempDir hooksHome;
    AppPaths hooksPaths = [this] {
        AppPaths paths;
        paths.home = hooksHome.path();
        paths.dataHome = hooksHome / "data";
        return paths;
    }();
    MapEnvironment hooksEnvironment{{{"VANTRELLE_CLAUDE_SETTINGS", (hooksHome / "settings.json").string()}}};
    ClaudeHooks hooks{hooksPaths, hooksEnvironment};
    ClaudeHookSwitch hookSwitch{hooks, queues, scheduler};
    AIUsageViewModel usageView{usage, hookSwitch, scheduler};
    FakeHttpClient http{scheduler};
    RatesService rates{http, defaults, scheduler, environment};
    CalcModel calc{rates, false};
    CalcViewModel calcView{calc};
    FakeDesktopNotifications desktopNotifications;
    PomodoroNotifier pomodoroNotifier{&desktopNotifications, settings, notifications, demo};
    PomodoroModel pomodoro{PomodoroModel::Dependencies{scheduler, scheduler, settings, defaults, activities,
                                                       notifications, sounds, pomodoroNotifier, nullptr,
                                                       environment, demo}};
    QuickTimerModel quickTimer{{scheduler, scheduler, settings, activities, notifications, sounds}};
    StopwatchModel stopwatch{scheduler, scheduler, activities};
    FocusViewModel focusView{pomodoro, quickTimer, stopwatch, settings};
};

}  // namespace vantrelle::testing
