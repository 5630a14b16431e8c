#pragma once

#include <memory>
#include <string>

#include "fakes/TempDir.h"
#include "platform/SerialQueue.h"
#include "platform/VirtualScheduler.h"
#include "support/DebugLog.h"

namespace vantrelle::testing {

// Sends the debug log to a file of its own for the life of the object, to check what the code says.
class LogCapture {
public:
    LogCapture() { DebugLog::configure(m_dir / "v.log", std::make_unique<InlineQueue>("debuglog"), m_clock); }
    ~LogCapture() { DebugLog::disable(); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    [[nodiscard]] std::string text() const { return m_dir.read("v.log"); }

private:
    TempDir m_dir;
    VirtualScheduler m_clock;
};

}  // namespace vantrelle::testing
