#pragma once

#include <string>

#include "platform/ListeningPorts.h"
#include "platform/ProcessRunner.h"

namespace vantrelle {

// The listening sockets as lsof reports them. The fallback where /proc can't be read.
class LsofListeningPorts final : public ListeningPorts {
public:
    explicit LsofListeningPorts(ProcessRunner& runner, std::string program = "lsof")
        : m_runner(runner), m_program(std::move(program)) {}
    [[nodiscard]] std::optional<std::vector<ListeningSocket>> list(std::string& error) override;

private:
    ProcessRunner& m_runner;
    std::string m_program;
};

// Asks `primary` first and `fallback` only when the primary listing fails.
class FallbackListeningPorts final : public ListeningPorts {
public:
    FallbackListeningPorts(ListeningPorts& primary, ListeningPorts& fallback)
        : m_primary(primary), m_fallback(fallback) {}
    [[nodiscard]] std::optional<std::vector<ListeningSocket>> list(std::string& error) override {
        if (auto sockets = m_primary.list(error)) return sockets;
        return m_fallback.list(error);
    }

private:
    ListeningPorts& m_primary;
    ListeningPorts& m_fallback;
};

}  // namespace vantrelle
