#pragma once

#include "platform/ScreenActivity.h"

namespace vantrelle::testing {

// The desktop as the test sets it: who is in front and how long since the last input.
class FakeScreenActivity final : public ScreenActivity {
public:
    std::optional<FrontmostApp> frontmost() override { return front; }
    double idleSeconds() override { return idle; }

    std::optional<FrontmostApp> front;
    double idle = 0;
};

}  // namespace vantrelle::testing
