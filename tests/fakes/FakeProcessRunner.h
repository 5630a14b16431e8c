#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ProcessRunner.h"

namespace vantrelle::testing {

// A process runner that records each call and answers through the test's function; without one,
// every program succeeds with no output.
class FakeProcessRunner final : public ProcessRunner {
public:
    struct Call {
        std::string program;
        std::vector<std::string> arguments;
        double timeoutSeconds = 0;
    };

    [[nodiscard]] ProcessResult run(const std::string& program, const std::vector<std::string>& arguments,
                                    double timeoutSeconds) override {
        calls.push_back({program, arguments, timeoutSeconds});
        if (answer) return answer(calls.back());
        return ProcessResult{true, false, 0, {}, {}};
    }

    [[nodiscard]] std::size_t count(const std::string& program) const {
        std::size_t n = 0;
        for (const auto& call : calls) n += call.program == program ? 1 : 0;
        return n;
    }

    std::function<ProcessResult(const Call&)> answer;
    std::vector<Call> calls;
};

}  // namespace vantrelle::testing
