#include "TerminationSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <string>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGHUP, SIGINT};

// Written by the handler, which may do nothing but async-signal-safe calls.
volatile std::sig_atomic_t g_writeEnd = -1;
std::array<struct sigaction, kSignals.size()> g_previous{};

void onSignal(int number) {
    const int saved = errno;
    const auto byte = static_cast<unsigned char>(number);
    // A full pipe already holds a pending quit; losing this byte loses nothing.
    [[maybe_unused]] const auto written = ::write(g_writeEnd, &byte, 1);
    errno = saved;
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void(int)> onSignal, QObject* parent)
    : QObject(parent), m_onSignal(std::move(onSignal)) {
    if (::pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        DebugLog::write(
            [] { return std::string("launch: no pipe for termination signals: ") + std::strerror(errno); });
        return;
    }
    g_writeEnd = m_pipe[1];
    struct sigaction action {};
    action.sa_handler = vantrelle::onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &action, &g_previous[i]);
    m_notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::drain);
}

TerminationSignals::~TerminationSignals() {
    if (m_notifier) {
        for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &g_previous[i], nullptr);
        g_writeEnd = -1;
    }
    for (int fd : m_pipe) {
        if (fd >= 0) ::close(fd);
    }
}

void TerminationSignals::drain() {
    unsigned char byte = 0;
    int last = 0;
    while (::read(m_pipe[0], &byte, 1) == 1) last = byte;
    if (last == 0) return;
    DebugLog::write([last] { return "launch: quitting on signal " + std::to_string(last); });
    if (m_onSignal) m_onSignal(last);
}

}  // namespace vantrelle
