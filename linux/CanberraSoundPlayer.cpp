#include "CanberraSoundPlayer.h"

#include <canberra.h>

#include <string>

#include "support/DebugLog.h"

namespace vantrelle {

CanberraSoundPlayer::CanberraSoundPlayer() {
    if (ca_context_create(&m_context) != CA_SUCCESS) m_context = nullptr;
}

CanberraSoundPlayer::~CanberraSoundPlayer() {
    if (m_context) ca_context_destroy(m_context);
}

namespace {

// The program's sound names and the freedesktop sound-theme events that stand for them, in one place.
struct ThemeSound {
    std::string_view name;
    const char* event;
};
constexpr ThemeSound kThemeSounds[] = {
    {"Glass", "message-new-instant"},  // a focus block or timer ended
    {"Ping", "message"},               // an agent asks for approval
    {"Tink", "dialog-information"},    // an agent waits or is done
};
constexpr const char* kFallbackEvent = "bell";  // any other name still makes a sound

}  // namespace

const char* CanberraSoundPlayer::themeSound(std::string_view name) {
    for (const auto& sound : kThemeSounds) {
        if (sound.name == name) return sound.event;
    }
    return kFallbackEvent;
}

void CanberraSoundPlayer::play(std::string_view name) {
    if (!m_context) return;
    const char* event = themeSound(name);
    const int result = ca_context_play(m_context, 0, CA_PROP_EVENT_ID, event, CA_PROP_EVENT_DESCRIPTION,
                                       std::string(name).c_str(), nullptr);
    if (result == CA_ERROR_NOTFOUND) {
        // A theme without this event: quiet, as the desktop itself would be.
        DebugLog::write(
            [&] { return "sound: the theme has no " + std::string(event) + " for " + std::string(name); });
    } else if (result != CA_SUCCESS) {
        DebugLog::write([&] { return "sound: " + std::string(name) + " failed: " + ca_strerror(result); });
    }
}

}  // namespace vantrelle
