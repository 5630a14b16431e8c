#include "updates/UpdateNotice.h"

#include <nlohmann/json.hpp>

#include "support/DebugLog.h"
#include "support/SharedInstance.h"
#include "updates/Version.h"

namespace vantrelle {

namespace {

bool isWebAddress(std::string_view text) {
    return text.starts_with("https://") || text.starts_with("http://");
}

}  // namespace

std::optional<UpdateRelease> parseUpdateFeed(std::string_view body, std::string* problem) {
    auto fail = [&](std::string why) -> std::optional<UpdateRelease> {
        if (problem) *problem = std::move(why);
        return std::nullopt;
    };
    const nlohmann::json json = nlohmann::json::parse(body, nullptr, false);
    if (json.is_discarded()) return fail("not JSON");
    if (!json.is_object()) return fail("not an object");
    const auto version = json.find("version");
    if (version == json.end() || !version->is_string()) return fail("no version");
    const auto& text = version->get_ref<const std::string&>();
    if (!Version::parse(text)) return fail("version \"" + text.substr(0, 40) + "\" is no version");
    UpdateRelease release{text, {}};
    if (const auto notes = json.find("notes");
        notes != json.end() && notes->is_string() && isWebAddress(notes->get_ref<const std::string&>()))
        release.notes = notes->get<std::string>();
    return release;
}

UpdateNotice::UpdateNotice(Dependencies deps) : m_deps(std::move(deps)) {
    if (m_deps.feedUrl.empty()) m_status = kPackageManagerText;
}

UpdateNotice::~UpdateNotice() {
    *m_alive = false;
}

UpdateNotice& UpdateNotice::shared() {
    return SharedInstance<UpdateNotice>::get();
}

void UpdateNotice::start() {
    if (m_deps.feedUrl.empty()) return;
    check(false);
    m_timer = m_deps.scheduler.repeat(kCheckInterval, [this] { check(false); });
}

void UpdateNotice::check(bool userInitiated) {
    if (m_deps.feedUrl.empty()) {
        DebugLog::write("updates: no feed in this build; the package manager brings new versions");
        setStatus(std::string(kPackageManagerText));
        return answer(userInitiated, m_status);
    }
    if (m_checking) return;
    m_checking = true;
    DebugLog::write([&] { return "updates: checking " + m_deps.feedUrl; });
    m_deps.http.get(
        m_deps.feedUrl, kTimeout,
        [this, alive = std::weak_ptr<bool>(m_alive), userInitiated](const HttpResponse& response) {
            if (alive.expired()) return;
            m_checking = false;
            handle(response, userInitiated);
        });
}

void UpdateNotice::handle(const HttpResponse& response, bool userInitiated) {
    if (!response.ok()) {
        DebugLog::write([&] {
            return "updates: feed not read (status " + std::to_string(response.status) + ") " +
                   response.error;
        });
        return answer(userInitiated, "The update feed could not be reached.");
    }
    std::string problem;
    const auto release = parseUpdateFeed(response.body, &problem);
    if (!release) {
        DebugLog::write([&] { return "updates: ignored a malformed feed: " + problem; });
        return answer(userInitiated, "The update feed could not be read.");
    }
    const auto newest = Version::parse(release->version);
    const auto installed = Version::parse(m_deps.installedVersion);
    if (installed && newest && *installed < *newest) {
        m_available = release;
        DebugLog::write([&] { return "updates: " + release->version + " is available"; });
        setStatus("Vantrelle " + release->version + " is available.");
        flashOnce(*release, userInitiated);
    } else {
        m_available.reset();
        setStatus("Vantrelle " + m_deps.installedVersion + " is up to date.");
    }
    answer(userInitiated, m_status);
}

void UpdateNotice::answer(bool userInitiated, const std::string& text) {
    if (userInitiated && onUserCheckAnswered) onUserCheckAnswered(text);
}

void UpdateNotice::flashOnce(const UpdateRelease& release, bool again) {
    if (!again && m_flashed == release.version) return;
    m_flashed = release.version;
    m_deps.activities.flash(LiveActivity{LiveActivity::Update{release.version}}, kFlashSeconds);
}

void UpdateNotice::setStatus(std::string text) {
    m_status = std::move(text);
    changed.emit();
}

}  // namespace vantrelle
