#pragma once

#include "platform/LoginItem.h"

namespace vantrelle::testing {

class FakeLoginItem final : public LoginItem {
public:
    [[nodiscard]] bool isEnabled() const override { return enabled; }
    bool setEnabled(bool on) override {
        ++calls;
        if (failing) return false;
        enabled = on;
        return true;
    }

    bool enabled = false;
    bool failing = false;
    int calls = 0;
};

}  // namespace vantrelle::testing
