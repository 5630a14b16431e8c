#include "agents/StatusFiguresPublisher.h"

#include "support/AtomicFile.h"
#include "support/DebugLog.h"

namespace vantrelle {

StatusFiguresPublisher::StatusFiguresPublisher(std::filesystem::path file, Scheduler& scheduler,
                                               Writer writer)
    : m_file(std::move(file)), m_scheduler(scheduler), m_writer(std::move(writer)) {
    if (!m_writer) {
        m_writer = [](const std::filesystem::path& path, const std::string& contents) {
            const auto result = writeFileAtomically(path, contents);
            if (!result)
                DebugLog::write([&] { return "aiusage: status figures not written: " + result.error(); });
            return result.ok();
        };
    }
}

StatusFiguresPublisher::~StatusFiguresPublisher() = default;

void StatusFiguresPublisher::update(StatusFigures figures) {
    m_current = std::move(figures);
    if (m_written && m_written->sameFigures(*m_current)) {
        m_pending.reset();
        return;
    }
    if (m_pending) return;  // the pending write takes the newest figures
    m_pending = m_scheduler.schedule(kDebounceSeconds, [this] {
        // Running now: let go of the handle without cancelling the timer that runs us.
        m_pending->detach();
        m_pending.reset();
        write();
    });
}

void StatusFiguresPublisher::flush() {
    if (!m_pending) return;
    m_pending.reset();
    write();
}

void StatusFiguresPublisher::write() {
    if (!m_current || (m_written && m_written->sameFigures(*m_current))) return;
    if (m_writer(m_file, statusFiguresJson(*m_current))) m_written = m_current;
}

}  // namespace vantrelle
