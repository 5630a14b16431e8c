#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "fakes/AppBasics.h"
#include "fakes/FakeDesktopNotifications.h"
#include "fakes/FakeOverlayPorts.h"
#include "fakes/TempDir.h"
#include "focus/PomodoroModel.h"
#include "focus/PomodoroNotifier.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle::testing {

// A focus timer on virtual time with its real notifier over an in-memory notification service.
class PomodoroFixture : public ::testing::Test, protected testing::AppBasics {
protected:
    PomodoroFixture() { settings.setFocusMinutes(25); }

    // With the in-memory notification service unless another is given.
    PomodoroModel& makeModel(DesktopNotifications* desktop = nullptr) {
        notifier =
            std::make_unique<PomodoroNotifier>(desktop ? desktop : &service, settings, notifications, demo);
        model = std::make_unique<PomodoroModel>(
            PomodoroModel::Dependencies{scheduler, scheduler, settings, defaults, activities, notifications,
                                        sounds, *notifier, &history, environment, demo});
        notifier->registerCategories(*model);
        return *model;
    }

    // Runs a work block of the set length to its end.
    void finishWorkBlock() {
        model->start(settings.focusMinutes(), PomodoroPhase::focus);
        scheduler.advance(static_cast<double>(settings.focusMinutes()) * 60 + PomodoroModel::kTickInterval);
    }

    RecordingSounds sounds;
    FakeDesktopNotifications service;
    TempDir dir;
    WrappedHistory history{dir / "wrapped-history.json", scheduler, false};
    MapEnvironment environment;
    bool demo = false;
    std::unique_ptr<PomodoroNotifier> notifier;
    std::unique_ptr<PomodoroModel> model;
};

}  // namespace vantrelle::testing
