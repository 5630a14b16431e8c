#include "StatusLineCommand.h"

#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "CommandPath.h"
#include "InstanceSocket.h"
#include "app/StatusLine.h"
#include "instance/InstanceCommands.h"
#include "instance/InstanceFolder.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "support/AppPaths.h"
#include "support/ReadFile.h"

namespace {

using namespace vantrelle;

// Claude Code runs the line often and waits for it: a busy app is passed over for the file quickly.
constexpr int kAskTimeoutMs = 150;
constexpr std::size_t kMaxInput = 1u << 20;

constexpr const char* kHelp =
    "usage: vantrelle statusline [--format <template>]\n"
    "  Reads Claude Code's status-line JSON on standard input and prints one line: the model, this\n"
    "  session's cost, today's cost, the 5-hour window's use and time left, the burn rate.\n"
    "  --format <template>  your own line, with fields in braces: {model} {session_cost}\n"
    "                       {session_tokens} {today_cost} {today_tokens} {block_cost} {block_tokens}\n"
    "                       {block_percent} {time_left} {burn} {projected} {source}\n"
    "  Install it in Claude Code with `vantrelle hooks install --statusline`.\n";

// Standard input, up to a bound; nothing when it is a terminal, which would wait for a person.
std::string readInput() {
    std::string input;
    if (::isatty(STDIN_FILENO) == 1) return input;
    char buffer[8192];
    for (;;) {
        pollfd entry{STDIN_FILENO, POLLIN, 0};
        // Claude Code closes its end after writing; a writer that never does is not waited on for long.
        if (::poll(&entry, 1, 1000) <= 0) break;
        const auto n = ::read(STDIN_FILENO, buffer, sizeof(buffer));
        if (n <= 0) break;
        input.append(buffer, static_cast<std::size_t>(n));
        if (input.size() > kMaxInput) break;
    }
    return input;
}

std::optional<StatusFigures> askApp(const std::filesystem::path& socket, const std::string& sessionId) {
    const auto reply = askInstanceSocket(
        socket, InstanceCommands::request(kStatusFiguresRequest, nlohmann::json{{"session", sessionId}}),
        kAskTimeoutMs);
    if (!reply) return std::nullopt;
    const auto json = nlohmann::json::parse(*reply, nullptr, false);
    if (!json.is_object() || !json.value("ok", false)) return std::nullopt;
    const auto figures = json.find("figures");
    if (figures == json.end() || !figures->is_object()) return std::nullopt;
    return parseStatusFigures(figures->dump());
}

}  // namespace

std::string vantrelle::statusLineCommandForClaude() {
    const std::string path = commandPath();
    if (path.empty()) return "vantrelle statusline";
    // A plain path needs no quotes, and reads better in the user's settings.
    if (path.find_first_of(" \t\"'\\`$;&|<>()*?[]#~!{}") == std::string::npos) return path + " statusline";
    std::string quoted = "\"";
    for (char c : path) {
        if (c == '"' || c == '\\' || c == '`' || c == '$') quoted += '\\';
        quoted += c;
    }
    return quoted + "\" statusline";
}

int runStatusLineCommand(int argc, char** argv) {
    std::optional<std::string> format;
    for (int i = 2; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--help" || argument == "-h") {
            std::fputs(kHelp, stdout);
            return 0;
        }
        if (argument == "--format" && i + 1 < argc) {
            format = argv[++i];
        } else if (argument.starts_with("--format=")) {
            format = argument.substr(9);
        }
        // Anything else is ignored: the status line must print, whatever it was given.
    }

    auto& environment = ProcessEnvironment::shared();
    const auto paths = AppPaths::fromEnvironment(environment);
    const auto socket = instanceFolder(environment, paths) / "instance.sock";
    const auto figuresFile = paths.cacheRoot() / std::string(kStatusFiguresFile);

    StatusSources sources;
    sources.askApp = [&](const std::string& sessionId) { return askApp(socket, sessionId); };
    sources.readFiguresFile = [&]() -> std::optional<StatusFigures> {
        const auto text = readWholeFile(figuresFile);
        return text ? parseStatusFigures(*text) : std::nullopt;
    };
    sources.readTranscript = [](const std::filesystem::path& transcript) {
        return readTranscriptFigures(transcript);
    };

    const StatusInput input = parseStatusInput(readInput());
    const StatusFacts facts = gatherStatus(input, sources, SystemClock::shared().now());
    const char* noColor = std::getenv("NO_COLOR");
    const bool colour = ::isatty(STDOUT_FILENO) == 1 && (noColor == nullptr || *noColor == 0);
    const std::string line = formatStatusLine(facts, format, colour) + "\n";
    std::fwrite(line.data(), 1, line.size(), stdout);
    return 0;
}
