#include "MonitorsComposition.h"

#include <unistd.h>

#include <QStandardPaths>
#include <charconv>

#include "WrappedCard.h"
#include "platform/Clock.h"
#include "support/DebugLog.h"
#include "wrapped/WrappedReport.h"

namespace vantrelle {

namespace {

QString picturesFolder() {
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return pictures.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::HomeLocation) : pictures;
}

}  // namespace

MonitorsComposition::MonitorsComposition(Deps deps)
    : m_deps(deps),
      m_lsofPorts(m_runner),
      m_ports(m_procPorts, m_lsofPorts),
      m_devServers({m_deps.scheduler, SystemClock::shared(), m_deps.queues, m_ports, m_processes, ::getpid(),
                    m_deps.paths.home.string(), m_deps.demoMode}),
      m_entries(DesktopEntryIndex::foldersFrom(m_deps.environment)),
      m_activity(m_deps.x, m_entries, ::getpid()),
      m_screenTime({m_deps.scheduler, SystemClock::shared(), m_activity,
                    m_deps.paths.dataRoot() / "screentime", m_deps.demoMode}),
      m_logind(QDBusConnection::systemBus(), ::getpid(),
               QString::fromStdString(m_deps.environment.get("XDG_SESSION_ID").value_or("")),
               {[this](bool locked) { m_screenTime.setLocked(locked); },
                [this](bool asleep) { m_screenTime.setAsleep(asleep); }}),
      m_mileage(CursorMileage::defaultFile(m_deps.paths.dataRoot()), SystemClock::shared(), m_deps.demoMode),
      m_counters(m_deps.paths.home),
      m_batteryCounters(m_counters, m_deps.battery),
      m_stats(m_deps.scheduler, SystemClock::shared(), m_batteryCounters),
      devServersView(m_devServers),
      screenTimeView(m_screenTime),
      systemStatsView(m_stats),
      wrappedView([this](WrappedPeriod period) { return makeSummary(period); }, picturesFolder()) {
    m_activity.setSwitchHandler(
        [this](std::optional<FrontmostApp> app) { m_screenTime.switchTo(std::move(app)); });
}

MonitorsComposition::~MonitorsComposition() {
    m_wrappedWindow.reset();
}

void MonitorsComposition::start() {
    m_screenTime.start();
    m_mileageFlush =
        m_deps.scheduler.repeat(ScreenTimeTracker::kFlushInterval, [this] { m_mileage.flush(); });
}

void MonitorsComposition::flush() {
    m_screenTime.flushNow();
    m_mileage.flush();
}

WrappedSummary MonitorsComposition::makeSummary(WrappedPeriod period) const {
    WrappedSources sources;
    sources.history = &m_deps.history;
    sources.cursorMeters = [this](Date from, Date to) { return m_mileage.meters(from, to); };
    sources.appSeconds = [this](Date from, Date to) { return m_screenTime.usage(from, to); };
    sources.aiTokens = [this](Date from, Date to) { return m_deps.aiUsage.tokens(from, to); };
    sources.topProject = [this](Date from, Date to) { return m_deps.aiUsage.topProject(from, to); };
    sources.demoMode = m_deps.demoMode;
    return WrappedSummary::make(period, SystemClock::shared().now(), sources);
}

void MonitorsComposition::writeWrappedCards(const std::string& folder) const {
    for (WrappedPeriod period : kWrappedViewPeriods) {
        const WrappedSummary summary = makeSummary(period);
        const QString file = QString::fromStdString(folder + "/" + std::string(rawName(period)) + ".png");
        WrappedCard::savePng(summary, file);
        DebugLog::write(wrappedLogLine(summary));
    }
}

void MonitorsComposition::registerHooks(LaunchHooks& hooks) {
    hooks.add({LaunchHookSlot::testWrappedOut, "VANTRELLE_TEST_WRAPPED_OUT", LaunchHook::isDirectory, 4.0,
               [this](const std::string& folder) { writeWrappedCards(folder); }});
    hooks.add({LaunchHookSlot::openWrapped, "VANTRELLE_OPEN_WRAPPED", LaunchHook::isOne, 4.5,
               [this](const std::string&) { showWrapped(); }});
    hooks.add({LaunchHookSlot::testStopPort, "VANTRELLE_TEST_STOP_PORT", LaunchHook::isInteger, 1.0,
               [this](const std::string& value) {
                   std::int64_t port = 0;
                   std::from_chars(value.data(), value.data() + value.size(), port);
                   m_devServers.stopPort(port);
               }});
}

void MonitorsComposition::showWrapped() {
    if (!m_wrappedWindow) {
        m_wrappedWindow = std::make_unique<QQuickView>(&m_deps.engine, nullptr);
        m_wrappedWindow->setTitle(QStringLiteral("Your Wrapped"));
        m_wrappedWindow->setResizeMode(QQuickView::SizeRootObjectToView);
        m_wrappedWindow->setColor(QColor(0x1c, 0x1c, 0x1e));
        m_wrappedWindow->resize(760, 380);
        m_wrappedWindow->setInitialProperties({{QStringLiteral("inset"), 16}});
        m_wrappedWindow->setSource(ShellEngine::componentUrl(QStringLiteral("WrappedView")));
        for (const auto& error : m_wrappedWindow->errors()) {
            DebugLog::write([&] { return "wrapped: qml " + error.toString().toStdString(); });
        }
    }
    wrappedView.refresh();
    m_wrappedWindow->show();
    m_wrappedWindow->raise();
    m_wrappedWindow->requestActivate();
}

}  // namespace vantrelle
