#pragma once

#include <optional>
#include <string>

#include "media/MediaSource.h"

namespace vantrelle {

// The players installed on the machine, to open one that isn't running.
class PlayerApps {
public:
    virtual ~PlayerApps() = default;
    // The installed player that stands for the source, by the name the user knows; nothing if none.
    [[nodiscard]] virtual std::optional<std::string> installedName(MediaSource source) const = 0;
    // Starts that player; nothing happens when none is installed.
    virtual void open(MediaSource source) = 0;
};

}  // namespace vantrelle
