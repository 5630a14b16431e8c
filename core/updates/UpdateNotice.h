#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "activity/LiveActivityCenter.h"
#include "platform/HttpClient.h"
#include "platform/Scheduler.h"
#include "support/Signal.h"

namespace vantrelle {

// The newest release as the update feed states it: a JSON object with "version" and, optionally,
// "notes", the address of its release notes.
struct UpdateRelease {
    std::string version;
    std::string notes;  // empty when the feed gives none or not a web address
    bool operator==(const UpdateRelease&) const = default;
};

// Reads a feed document; gives none, with what was wrong in `problem`, for anything else.
[[nodiscard]] std::optional<UpdateRelease> parseUpdateFeed(std::string_view body,
                                                           std::string* problem = nullptr);

// Tells the user that a newer release exists. Only builds installed from our Debian package look:
// they compare their own version with the feed's, flash the new version once in the closed notch and
// say so in the status text. Nothing is downloaded or installed; the package manager does that. A build
// without a feed address says that updates come from the package manager. Main thread only.
class UpdateNotice {
public:
    static constexpr double kFlashSeconds = 6.0;
    static constexpr double kCheckInterval = 24 * 3600.0;
    static constexpr double kTimeout = 15.0;
    static constexpr std::string_view kPackageManagerText = "Updates come from your package manager.";

    struct Dependencies {
        HttpClient& http;
        Scheduler& scheduler;
        LiveActivityCenter& activities;
        std::string installedVersion;
        std::string feedUrl;  // empty: no feed
        bool packaged = false;
    };

    explicit UpdateNotice(Dependencies deps);
    ~UpdateNotice();
    UpdateNotice(const UpdateNotice&) = delete;
    UpdateNotice& operator=(const UpdateNotice&) = delete;

    [[nodiscard]] static UpdateNotice& shared();

    // Whether this build can look for updates at all: installed from our package.
    [[nodiscard]] bool isAdHocSigned() const { return m_deps.packaged; }
    [[nodiscard]] bool hasFeed() const { return !m_deps.feedUrl.empty(); }
    // Checks now and then once a day; a background service, for packaged builds only.
    void start();
    // Asks the feed. A user-initiated check flashes a known new release again.
    void check(bool userInitiated);

    [[nodiscard]] const std::optional<UpdateRelease>& available() const { return m_available; }
    // The line the updates row shows.
    [[nodiscard]] const std::string& statusText() const { return m_status; }
    [[nodiscard]] bool isChecking() const { return m_checking; }

    Signal<> changed;
    // The answer to a check the user asked for, in words, whatever came of it.
    std::function<void(const std::string& answer)> onUserCheckAnswered;

private:
    void answer(bool userInitiated, const std::string& text);
    void handle(const HttpResponse& response, bool userInitiated);
    void flashOnce(const UpdateRelease& release, bool again);
    void setStatus(std::string text);

    Dependencies m_deps;
    std::optional<UpdateRelease> m_available;
    std::string m_flashed;  // the version already flashed in this process
    std::string m_status;
    bool m_checking = false;
    RepeatingTimer m_timer;
    // Answers that arrive after this object is gone are dropped.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

}  // namespace vantrelle
