#pragma once

#include "platform/Environment.h"

namespace vantrelle {

// Demo mode fills the program with invented data for screen recordings: stores read canned data in
// place of the user's and write nothing. On when VANTRELLE_DEMO is exactly "1", fixed at first read.
class DemoMode {
public:
    [[nodiscard]] static bool isOn();
    [[nodiscard]] static bool resolve(const Environment& environment) {
        return environment.isOne("VANTRELLE_DEMO");
    }
};

}  // namespace vantrelle
