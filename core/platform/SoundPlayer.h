#pragma once

#include <string_view>

namespace vantrelle {

// Plays a short system sound by its name in this program ("Glass", "Ping", "Tink").
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;
    virtual void play(std::string_view name) = 0;
};

}  // namespace vantrelle
