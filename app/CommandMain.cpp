// The `vantrelle` command. The status line Claude Code runs after every reply must answer in a few
// milliseconds, which loading Qt alone would spend, so it is answered here by a program that links no
// Qt. Everything else belongs to the shell program, which this process becomes.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "CommandPath.h"
#include "StatusLineCommand.h"

namespace {

// Beside this program in a build folder; under the libexec folder once installed.
std::filesystem::path shellProgram(const std::filesystem::path& self) {
    const auto folder = self.parent_path();
    if (auto beside = folder / "vantrelle-shell"; std::filesystem::exists(beside)) return beside;
    return (folder / VANTRELLE_SHELL_FROM_BINDIR / "vantrelle-shell").lexically_normal();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "statusline") == 0) return runStatusLineCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("vantrelle %s\n", VANTRELLE_VERSION);
        return 0;
    }
    const std::string self = vantrelle::commandPath();
    const auto shell = shellProgram(self);
    ::setenv(vantrelle::kCommandPathVariable, self.c_str(), 1);
    ::execv(shell.c_str(), argv);
    std::fprintf(stderr, "vantrelle: cannot start %s: %s\n", shell.c_str(), std::strerror(errno));
    return 127;
}
