#pragma once

#include "platform/Date.h"

namespace vantrelle {

// The wall clock. Tests pass a VirtualScheduler, whose clock moves only when the test advances it.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
};

class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
    static SystemClock& shared();
};

}  // namespace vantrelle
