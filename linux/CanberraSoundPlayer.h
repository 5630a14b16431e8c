#pragma once

#include "platform/SoundPlayer.h"

struct ca_context;

namespace vantrelle {

// System sounds through the desktop's sound theme. The program's names map to freedesktop event sounds.
class CanberraSoundPlayer final : public SoundPlayer {
public:
    CanberraSoundPlayer();
    ~CanberraSoundPlayer() override;
    void play(std::string_view name) override;

    [[nodiscard]] static const char* themeSound(std::string_view name);

private:
    ca_context* m_context = nullptr;
};

}  // namespace vantrelle
