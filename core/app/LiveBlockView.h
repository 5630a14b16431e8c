#pragma once

#include <optional>
#include <string>

#include "agents/StatusFigures.h"

namespace vantrelle {

// The screen of `vantrelle usage blocks --live`: the open 5-hour window's use, projection, burn rate,
// time left and models, from the figures the app hands out. Redrawn whole at each change.
struct LiveBlockStyle {
    bool colour = false;
    int width = 80;  // columns of the terminal
};

[[nodiscard]] std::string liveBlockScreen(const std::optional<StatusFigures>& figures, Date now,
                                          LiveBlockStyle style);

}  // namespace vantrelle
