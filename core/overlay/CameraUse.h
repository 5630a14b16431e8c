#pragma once

#include <optional>

#include "platform/Date.h"

namespace vantrelle {

// Whether the camera is ours: the mirror wants it, its session runs, or it stopped less than four
// seconds ago. Devices keep reporting "running" for a moment after they stop, and without that margin
// closing the mirror would look like a call.
struct CameraUse {
    static constexpr double kReleaseMargin = 4.0;

    bool wantsCamera = false;
    bool sessionRunning = false;
    std::optional<Date> ownUseEndedAt;

    [[nodiscard]] bool isInUseByUs(Date now) const {
        return wantsCamera || sessionRunning || (ownUseEndedAt && now - *ownUseEndedAt < kReleaseMargin);
    }
};

}  // namespace vantrelle
