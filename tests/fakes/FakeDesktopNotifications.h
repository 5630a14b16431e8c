#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/DesktopNotifications.h"

namespace vantrelle::testing {

// A notification service in memory: what is on screen, and a way to answer as the user would.
class FakeDesktopNotifications final : public DesktopNotifications {
public:
    void authorize(std::function<void(bool, const std::string&)> answer) override {
        ++authorizations;
        answer(granted, authorizeError);
    }
    void post(const DesktopNotification& notification,
              std::function<void(const std::string&)> done) override {
        ++posts;
        if (postError.empty()) delivered.push_back(notification);
        done(postError);
    }
    void remove(std::string_view tag) override {
        std::erase_if(delivered, [&](const DesktopNotification& n) { return n.tag == tag; });
    }
    void setReplyHandler(std::function<void(const DesktopNotificationReply&)> handler) override {
        m_handler = std::move(handler);
    }

    // The user clicks `action` on the delivered notification with `tag`; the service takes it down.
    void click(const std::string& tag, const std::string& action) {
        auto it = std::ranges::find(delivered, tag, &DesktopNotification::tag);
        DesktopNotificationReply reply{tag, action, {}};
        if (it != delivered.end()) {
            reply.userInfo = it->userInfo;
            delivered.erase(it);
        }
        if (m_handler) m_handler(reply);
    }
    void reply(const DesktopNotificationReply& reply) {
        if (m_handler) m_handler(reply);
    }

    [[nodiscard]] std::size_t count(std::string_view tag) const {
        return static_cast<std::size_t>(std::ranges::count(delivered, tag, &DesktopNotification::tag));
    }

    bool granted = true;
    std::string authorizeError;
    std::string postError;
    int authorizations = 0;
    int posts = 0;
    std::vector<DesktopNotification> delivered;

private:
    std::function<void(const DesktopNotificationReply&)> m_handler;
};

}  // namespace vantrelle::testing
