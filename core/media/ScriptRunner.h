#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "platform/ProcessRunner.h"

namespace vantrelle {

// Runs AppleScript through the command-line tools and gives back the reply. Compiled scripts are kept
// as "<cache>/scripts/<hash>.scpt" and found again after a restart. Blocking and not thread-safe:
// it belongs to the media queue, so at most one script runs at a time.
class ScriptRunner {
public:
    struct Tools {
        std::string osascript = "/usr/bin/osascript";
        std::string osacompile = "/usr/bin/osacompile";
        // A player that doesn't answer delays the next query by at most this much.
        double watchdogSeconds = 6.0;
    };

    ScriptRunner(ProcessRunner& processes, std::filesystem::path cacheDir, Tools tools);

    // The trimmed standard output, or nothing when the script failed. With `cache`, the compiled copy
    // runs where one can be had; without one the text runs as it is.
    [[nodiscard]] std::optional<std::string> execute(const std::string& script, bool cache);
    // The compiled copy of the script, compiling it first when it isn't on disk.
    [[nodiscard]] std::optional<std::filesystem::path> compiledPath(const std::string& script);

    [[nodiscard]] const std::filesystem::path& cacheDir() const { return m_cacheDir; }

private:
    ProcessRunner& m_processes;
    std::filesystem::path m_cacheDir;
    Tools m_tools;
    std::map<std::string, std::filesystem::path> m_compiled;
};

}  // namespace vantrelle
