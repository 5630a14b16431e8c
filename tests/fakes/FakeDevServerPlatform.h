#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/ListeningPorts.h"
#include "platform/ProcessControl.h"

namespace vantrelle::testing {

// A pretend machine: listening sockets, the processes behind them, and the signals they were sent.
// A process whose `endsOn` signal arrives stops listening, as a real server would.
class FakeDevServerPlatform final : public ListeningPorts, public ProcessControl {
public:
    struct Process {
        ProcessDetails details;
        bool endsOnTerminate = true;
    };

    std::optional<std::vector<ListeningSocket>> list(std::string& error) override {
        ++listings;
        if (failing) {
            error = "no table";
            return std::nullopt;
        }
        return sockets;
    }
    std::optional<ProcessDetails> details(pid_t pid) override {
        const auto it = processes.find(pid);
        if (it == processes.end()) return std::nullopt;
        return it->second.details;
    }
    bool send(pid_t pid, ProcessSignal signal) override {
        signals.emplace_back(pid, signal);
        const auto it = processes.find(pid);
        if (it == processes.end()) return false;
        if (signal == ProcessSignal::kill || it->second.endsOnTerminate) end(pid);
        return true;
    }

    void add(pid_t pid, std::string command, std::int64_t port, ProcessDetails details,
             bool endsOnTerminate = true) {
        sockets.push_back({pid, std::move(command), port});
        processes[pid] = {std::move(details), endsOnTerminate};
    }
    void end(pid_t pid) {
        processes.erase(pid);
        std::erase_if(sockets, [pid](const ListeningSocket& s) { return s.pid == pid; });
    }

    std::vector<ListeningSocket> sockets;
    std::map<pid_t, Process> processes;
    std::vector<std::pair<pid_t, ProcessSignal>> signals;
    int listings = 0;
    bool failing = false;
};

}  // namespace vantrelle::testing
