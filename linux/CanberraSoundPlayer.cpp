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

const char* CanberraSoundPlayer::themeSound(std::string_view name) {
    if (name == "Glass") return "message-new-instant";
    if (name == "Ping") return "message";
    if (name == "Tink") return "dialog-information";
    return "bell";
}

void CanberraSoundPlayer::play(std::string_view name) {
    if (!m_context) return;
    const int result = ca_context_play(m_context, 0, CA_PROP_EVENT_ID, themeSound(name),
                                       CA_PROP_EVENT_DESCRIPTION, std::string(name).c_str(), nullptr);
    if (result != CA_SUCCESS) {
        DebugLog::write([&] { return "sound: " + std::string(name) + " failed: " + ca_strerror(result); });
    }
}

}  // namespace vantrelle
