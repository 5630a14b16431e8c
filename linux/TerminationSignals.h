#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace vantrelle {

// Turns SIGTERM, SIGHUP and SIGINT (a logout, a closed terminal, Ctrl+C, `kill`) into a call on the
// main thread, so the program ends the way Quit in the menu ends it and the stores flush their
// pending saves. The handler only writes a byte to a pipe; the event loop reads it. One instance at a
// time; the signals' earlier handlers are restored when it goes.
class TerminationSignals final : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(std::function<void(int signal)> onSignal, QObject* parent = nullptr);
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    // Whether the handlers are in place; false if the pipe couldn't be made (logged).
    [[nodiscard]] bool isActive() const { return m_notifier != nullptr; }

private:
    void drain();

    std::function<void(int)> m_onSignal;
    int m_pipe[2] = {-1, -1};
    QSocketNotifier* m_notifier = nullptr;
};

}  // namespace vantrelle
