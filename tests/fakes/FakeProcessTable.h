#pragma once

#include <string>
#include <vector>

#include "platform/ProcessTable.h"

namespace vantrelle::testing {

// The processes the test says are running, or a listing that fails.
class FakeProcessTable final : public ProcessTable {
public:
    std::optional<std::vector<ProcessInfo>> list(std::string& error) override {
        if (failing) {
            error = "no /proc";
            return std::nullopt;
        }
        return processes;
    }

    std::vector<ProcessInfo> processes;
    bool failing = false;
};

}  // namespace vantrelle::testing
