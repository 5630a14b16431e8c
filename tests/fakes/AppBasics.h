#pragma once

#include "activity/LiveActivityCenter.h"
#include "catalog/AppSettings.h"
#include "fakes/FakeLoginItem.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle::testing {

// What most models are built on: settings over in-memory defaults, notifications, the live activities
// and virtual time. Test fixtures inherit it next to ::testing::Test.
struct AppBasics {
    VirtualScheduler scheduler;  // from 2027-01-15 08:00 UTC
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    FakeLoginItem loginItem;
    AppSettings settings{defaults, notifications, loginItem, scheduler};
    LiveActivityCenter activities{scheduler};
};

}  // namespace vantrelle::testing
