#pragma once

#include "platform/ProcessRunner.h"

namespace vantrelle {

class QtProcessRunner final : public ProcessRunner {
public:
    [[nodiscard]] ProcessResult run(const std::string& program, const std::vector<std::string>& arguments,
                                    double timeoutSeconds) override;
};

}  // namespace vantrelle
