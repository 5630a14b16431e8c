#include "NoticesComposition.h"

#include <QCoreApplication>
#include <algorithm>

#include "DebianPackage.h"
#include "support/SharedInstance.h"

#ifndef VANTRELLE_UPDATE_FEED
#define VANTRELLE_UPDATE_FEED ""
#endif

namespace vantrelle {

namespace {

bool installedFromOurPackage() {
    return installedByPackage("vantrelle", QCoreApplication::applicationFilePath().toStdString());
}

}  // namespace

NoticesComposition::NoticesComposition(Deps deps)
    : m_deps(deps),
      m_power(QDBusConnection::systemBus()),
      battery(m_power, m_deps.activities),
      reminders({SystemClock::shared(), m_deps.scheduler, m_deps.settings, m_deps.defaults,
                 m_deps.notifications, m_deps.demoMode}),
      updates({m_deps.http, m_deps.scheduler, m_deps.activities, VANTRELLE_VERSION,
               feedUrl(m_deps.environment), !m_deps.demoMode && installedFromOurPackage()}) {
    SharedInstance<BatteryMonitor>::install(&battery);
    SharedInstance<WrappedReminders>::install(&reminders);
    SharedInstance<UpdateNotice>::install(&updates);
    updates.onUserCheckAnswered = [this](const std::string& answer) {
        if (!m_deps.notifications) return;
        DesktopNotification n;
        n.tag = "updates";
        n.title = "Vantrelle updates";
        n.body = answer;
        if (updates.available()) n.body += " Install it with your package manager.";
        m_deps.notifications->post(n, [](const std::string&) {});
    };
}

NoticesComposition::~NoticesComposition() {
    SharedInstance<BatteryMonitor>::install(nullptr);
    SharedInstance<WrappedReminders>::install(nullptr);
    SharedInstance<UpdateNotice>::install(nullptr);
}

std::string NoticesComposition::updatesNote() const {
    return updates.hasFeed() ? std::string() : std::string(UpdateNotice::kPackageManagerText);
}

std::string NoticesComposition::feedUrl(const Environment& environment) {
    return environment.get("VANTRELLE_UPDATE_FEED").value_or(VANTRELLE_UPDATE_FEED);
}

void NoticesComposition::showWrapped(const std::string& period, MonitorsComposition& monitors) {
    const auto named = wrappedPeriodNamed(period);
    const auto at = std::find(kWrappedViewPeriods.begin(), kWrappedViewPeriods.end(), named);
    monitors.wrappedView.setPeriod(at == kWrappedViewPeriods.end()
                                       ? 0
                                       : static_cast<int>(std::distance(kWrappedViewPeriods.begin(), at)));
    monitors.showWrapped();
}

}  // namespace vantrelle
