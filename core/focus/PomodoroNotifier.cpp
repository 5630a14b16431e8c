#include "focus/PomodoroNotifier.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

#include "support/DebugLog.h"
#include "support/SharedInstance.h"

namespace vantrelle {

PomodoroNotifier& PomodoroNotifier::shared() {
    return SharedInstance<PomodoroNotifier>::get();
}

PomodoroNotifier::PomodoroNotifier(DesktopNotifications* service, AppSettings& settings,
                                   NotificationCenter& notifications, bool demoMode)
    : m_service(service), m_settings(settings), m_notifications(notifications), m_demoMode(demoMode) {}

std::vector<std::pair<std::string, std::string>> PomodoroNotifier::actions(Category category) {
    if (category == Category::workDone) {
        return {{std::string(kStartBreak), "Start break"}, {std::string(kKeepWorking), "Keep working"}};
    }
    return {{std::string(kStartFocus), "Start next session"}};
}

void PomodoroNotifier::registerCategories(PomodoroChoice& choice) {
    m_choice = &choice;
    if (!m_service) return;
    m_service->setReplyHandler([this](const DesktopNotificationReply& reply) { handleReply(reply); });
}

void PomodoroNotifier::requestAuthorizationIfNeeded() {
    if (!m_service || m_asked || m_demoMode) return;
    m_asked = true;
    m_service->authorize([this](bool granted, const std::string& error) {
        if (!error.empty()) DebugLog::write([&] { return "notifications: authorization failed " + error; });
        m_authorized = granted && error.empty();
    });
}

std::string PomodoroNotifier::workDoneBody(std::int64_t completedToday, const std::string& breakTitle,
                                           std::int64_t breakMinutes) {
    std::string lower = breakTitle;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return fmt::format("{} session{} done today. Take a {} minute {}, or keep working.", completedToday,
                       completedToday == 1 ? "" : "s", breakMinutes, lower);
}

void PomodoroNotifier::workFinished(std::int64_t completedToday, const std::string& breakTitle,
                                    std::int64_t breakMinutes) {
    post("Work session done", workDoneBody(completedToday, breakTitle, breakMinutes), Category::workDone,
         kWorkDoneId);
}

void PomodoroNotifier::breakFinished(std::int64_t focusMinutes) {
    post("Break over", fmt::format("Ready for another {} minutes?", focusMinutes), Category::breakDone,
         kBreakDoneId);
}

void PomodoroNotifier::removeDelivered() {
    if (!m_service) return;
    m_service->remove(kWorkDoneId);
    m_service->remove(kBreakDoneId);
}

void PomodoroNotifier::post(const std::string& title, const std::string& body, Category category,
                            std::string_view id) {
    if (!m_settings.sessionNotifications()) return;
    // Not known yet lets the post through: the service refuses on its own if it must.
    if (m_authorized == false) return;
    if (!m_service || m_demoMode) return;
    // No sound here: the timer's own chime answers to a switch of its own.
    DesktopNotification notification{std::string(id), title, body, actions(category), {}};
    m_service->remove(id);  // at most one of each kind on screen
    m_service->post(notification, [](const std::string& error) {
        if (!error.empty()) DebugLog::write([&] { return "notifications: post failed " + error; });
    });
}

void PomodoroNotifier::handleReply(const DesktopNotificationReply& reply) {
    if (auto wrapped = reply.userInfo.find(std::string(kWrappedKey)); wrapped != reply.userInfo.end()) {
        if (onWrappedReply) onWrappedReply(wrapped->second);
        return;
    }
    // Other notices of the app share the service; their replies are not the timer's business.
    if (reply.tag != kWorkDoneId && reply.tag != kBreakDoneId) return;
    if (reply.action == DesktopNotifications::kDefaultAction) {
        // The banner itself: open the Focus tool, the choice stays.
        m_notifications.post(Notifications::pomodoroRevealRequested);
        return;
    }
    if (!m_choice) return;
    if (reply.action == kKeepWorking) {
        m_choice->continueWorking();
    } else if (reply.action == kStartBreak || reply.action == kStartFocus) {
        m_choice->startQueuedPhase();
    } else {
        m_choice->clearChoice();
    }
}

}  // namespace vantrelle
