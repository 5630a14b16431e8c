#include "media/ScriptRunner.h"

#include <system_error>

#include "media/MediaScripts.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

// Compiling has no time limit of its own; this only keeps a hung compiler from holding the queue forever.
constexpr double kCompileTimeout = 24 * 3600.0;

std::string_view trimmed(std::string_view text, std::string_view blanks) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isUtf8(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const std::size_t length = byte < 0x80           ? 1
                                   : (byte >> 5) == 0x6  ? 2
                                   : (byte >> 4) == 0xE  ? 3
                                   : (byte >> 3) == 0x1E ? 4
                                                         : 0;
        if (length == 0 || i + length > text.size()) return false;
        for (std::size_t k = 1; k < length; ++k) {
            if ((static_cast<unsigned char>(text[i + k]) >> 6) != 0x2) return false;
        }
        i += length;
    }
    return true;
}

// Normal while a player starts, quits or has no track: no such object, not running, timed out.
bool isSilentFailure(std::string_view error) {
    return error.find("-1728") != std::string_view::npos || error.find("-600") != std::string_view::npos ||
           error.find("-1712") != std::string_view::npos;
}

}  // namespace

ScriptRunner::ScriptRunner(ProcessRunner& processes, std::filesystem::path cacheDir, Tools tools)
    : m_processes(processes), m_cacheDir(std::move(cacheDir)), m_tools(std::move(tools)) {
    std::error_code ignored;
    std::filesystem::create_directories(m_cacheDir / "scripts", ignored);
}

std::optional<std::filesystem::path> ScriptRunner::compiledPath(const std::string& script) {
    if (auto it = m_compiled.find(script); it != m_compiled.end()) return it->second;
    const std::string hash = media_scripts::stableHash(script);
    auto path = m_cacheDir / "scripts" / (hash + ".scpt");
    std::error_code error;
    if (std::filesystem::exists(path, error)) {
        m_compiled.emplace(script, path);
        return path;
    }
    std::vector<std::string> arguments{"-o", path.string()};
    for (auto& line : media_scripts::lineArguments(script)) arguments.push_back(std::move(line));
    const auto result = m_processes.run(m_tools.osacompile, arguments, kCompileTimeout);
    if (!result.succeeded()) {
        DebugLog::write([&] { return "media: osacompile failed for script hash " + hash; });
        return std::nullopt;
    }
    std::filesystem::permissions(path,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
                                     std::filesystem::perms::others_read,
                                 error);
    m_compiled.emplace(script, path);
    return path;
}

std::optional<std::string> ScriptRunner::execute(const std::string& script, bool cache) {
    std::vector<std::string> arguments;
    // A script that won't compile still runs as text: it costs speed, not function.
    if (auto compiled = cache ? compiledPath(script) : std::nullopt) {
        arguments.push_back(compiled->string());
    } else {
        arguments = media_scripts::lineArguments(script);
    }
    const auto result = m_processes.run(m_tools.osascript, arguments, m_tools.watchdogSeconds);
    if (!result.launched) {
        DebugLog::write([&] {
            const std::string why =
                result.standardError.empty() ? "could not start " + m_tools.osascript : result.standardError;
            return "media: osascript launch failed: " + why;
        });
        return std::nullopt;
    }
    if (!result.timedOut && result.exitCode == 0) {
        if (!isUtf8(result.standardOutput)) return std::nullopt;
        return std::string(trimmed(result.standardOutput, " \t\r\n"));
    }
    const std::string error(isUtf8(result.standardError) ? trimmed(result.standardError, " \t\r\n")
                                                         : std::string_view());
    if (isSilentFailure(error)) return std::nullopt;
    DebugLog::write([&] {
        return "media: osascript failed (" + std::to_string(result.exitCode) + "): " + error.substr(0, 200);
    });
    return std::nullopt;
}

}  // namespace vantrelle
