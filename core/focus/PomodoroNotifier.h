#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "catalog/AppSettings.h"
#include "focus/PomodoroPorts.h"
#include "platform/DesktopNotifications.h"
#include "support/NotificationCenter.h"

namespace vantrelle {

// Posts the focus timer's two notifications, "work done" and "break over", with their buttons, and
// routes the user's replies back into the timer. No service, demo mode, the setting off or a refusal
// all mean silence; the timer's choice never depends on a notification. Main thread only.
class PomodoroNotifier final : public PomodoroAlerts {
public:
    enum class Category { workDone, breakDone };

    static constexpr std::string_view kWorkDoneId = "pomodoro.work-done";
    static constexpr std::string_view kBreakDoneId = "pomodoro.break-done";
    static constexpr std::string_view kStartBreak = "pomodoro.start-break";
    static constexpr std::string_view kKeepWorking = "pomodoro.keep-working";
    static constexpr std::string_view kStartFocus = "pomodoro.start-focus";
    // A reply carrying this key belongs to the recap's reminders, whatever its action.
    static constexpr std::string_view kWrappedKey = "wrapped";

    // `service` may be null: a session without a notification service.
    PomodoroNotifier(DesktopNotifications* service, AppSettings& settings, NotificationCenter& notifications,
                     bool demoMode);

    [[nodiscard]] static PomodoroNotifier& shared();

    // Once at launch: replies start flowing to `choice` from here on.
    void registerCategories(PomodoroChoice& choice);

    void requestAuthorizationIfNeeded() override;
    void workFinished(std::int64_t completedToday, const std::string& breakTitle,
                      std::int64_t breakMinutes) override;
    void breakFinished(std::int64_t focusMinutes) override;
    void removeDelivered() override;

    // Replies to the recap's reminders, with the period they named.
    std::function<void(const std::string& period)> onWrappedReply;

    [[nodiscard]] std::optional<bool> authorized() const { return m_authorized; }
    [[nodiscard]] bool asked() const { return m_asked; }

    // "3 sessions done today. Take a 5 minute short break, or keep working."
    [[nodiscard]] static std::string workDoneBody(std::int64_t completedToday, const std::string& breakTitle,
                                                  std::int64_t breakMinutes);
    [[nodiscard]] static std::vector<std::pair<std::string, std::string>> actions(Category category);

    void handleReply(const DesktopNotificationReply& reply);

private:
    void post(const std::string& title, const std::string& body, Category category, std::string_view id);

    DesktopNotifications* m_service;
    AppSettings& m_settings;
    NotificationCenter& m_notifications;
    bool m_demoMode;
    PomodoroChoice* m_choice = nullptr;
    std::optional<bool> m_authorized;
    bool m_asked = false;
};

}  // namespace vantrelle
