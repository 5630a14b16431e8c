#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrelle {

// A notification on the desktop's notification service, with buttons.
struct DesktopNotification {
    std::string tag;  // at most one delivered notification per tag: the program's own name for it
    std::string title;
    std::string body;
    std::vector<std::pair<std::string, std::string>> actions;  // action id, button title, in order
    std::map<std::string, std::string> userInfo;               // comes back with the reply
};

// The user's answer to a delivered notification.
struct DesktopNotificationReply {
    std::string tag;
    std::string action;  // an action id, or kDefaultAction when the banner itself was clicked
    std::map<std::string, std::string> userInfo;
};

// The desktop's notification service. Every call returns at once; answers and replies arrive later on
// the main thread. A missing service answers with an error and never blocks.
class DesktopNotifications {
public:
    static constexpr std::string_view kDefaultAction = "default";

    virtual ~DesktopNotifications() = default;

    // Whether notifications can be shown; `error` is empty unless the service could not be asked.
    virtual void authorize(std::function<void(bool granted, const std::string& error)> answer) = 0;
    // Delivers now; `done` gets an empty string, or what went wrong.
    virtual void post(const DesktopNotification& notification,
                      std::function<void(const std::string& error)> done) = 0;
    // Takes down the delivered notification with this tag, if any.
    virtual void remove(std::string_view tag) = 0;
    virtual void setReplyHandler(std::function<void(const DesktopNotificationReply&)> handler) = 0;
};

}  // namespace vantrelle
