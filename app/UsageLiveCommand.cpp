#include "UsageLiveCommand.h"

#include <poll.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>

#include "InstanceLaunch.h"
#include "InstanceSocket.h"
#include "agents/StatusFigures.h"
#include "app/LiveBlockView.h"
#include "instance/InstanceCommands.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "support/AppPaths.h"
#include "support/FileDescriptor.h"
#include "support/ReadFile.h"

namespace vantrelle {

namespace {

void writeAll(std::string_view text) {
    while (!text.empty()) {
        const auto n = ::write(STDOUT_FILENO, text.data(), text.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(n));
    }
}

int columns() {
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return 80;
}

// The app's figures: asked from memory when it answers, else as it last wrote them.
std::optional<StatusFigures> currentFigures(const std::filesystem::path& socket,
                                            const std::filesystem::path& file) {
    if (const auto reply = askInstanceSocket(socket, InstanceCommands::request(kStatusFiguresRequest), 500)) {
        const auto json = nlohmann::json::parse(*reply, nullptr, false);
        if (json.is_object() && json.value("ok", false) && json.contains("figures") &&
            json["figures"].is_object()) {
            if (auto figures = parseStatusFigures(json["figures"].dump())) return figures;
        }
    }
    const auto text = readWholeFile(file);
    return text ? parseStatusFigures(*text) : std::nullopt;
}

// The terminal as the user had it, given back however the view ends.
class AlternateScreen {
public:
    AlternateScreen() {
        m_saved = ::tcgetattr(STDIN_FILENO, &m_termios) == 0;
        if (m_saved) {
            termios quiet = m_termios;
            quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON);
            ::tcsetattr(STDIN_FILENO, TCSANOW, &quiet);
        }
        writeAll("\x1b[?1049h\x1b[?25l");
    }
    ~AlternateScreen() {
        writeAll("\x1b[?25h\x1b[?1049l");
        if (m_saved) ::tcsetattr(STDIN_FILENO, TCSANOW, &m_termios);
    }
    AlternateScreen(const AlternateScreen&) = delete;
    AlternateScreen& operator=(const AlternateScreen&) = delete;

private:
    termios m_termios{};
    bool m_saved = false;
};

}  // namespace

int runLiveBlocks(bool colour) {
    auto& environment = ProcessEnvironment::shared();
    const auto paths = AppPaths::fromEnvironment(environment);
    const auto socket = instanceFolder(environment) / "instance.sock";
    const auto folder = paths.cacheRoot();
    const auto file = folder / std::string(kStatusFiguresFile);
    const auto draw = [&](bool clear) {
        const auto screen =
            liveBlockScreen(currentFigures(socket, file), SystemClock::shared().now(), {colour, columns()});
        writeAll((clear ? "\x1b[H\x1b[2J" : "") + screen);
    };
    if (::isatty(STDOUT_FILENO) != 1) {
        draw(false);
        return 0;
    }

    // Signals arrive as readable events beside the file watch, so the terminal is restored in order.
    sigset_t signals;
    sigemptyset(&signals);
    for (int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGWINCH}) sigaddset(&signals, number);
    if (::sigprocmask(SIG_BLOCK, &signals, nullptr) != 0) return 1;
    FileDescriptor signalFd(::signalfd(-1, &signals, SFD_CLOEXEC));
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    // The app replaces the file by renaming a finished one over it: watch the folder for that.
    FileDescriptor watchFd(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (watchFd.isOpen() &&
        ::inotify_add_watch(watchFd.get(), folder.c_str(), IN_MOVED_TO | IN_CLOSE_WRITE | IN_DELETE) < 0) {
        watchFd.reset();
    }
    if (!signalFd.isOpen() || !watchFd.isOpen()) {
        draw(false);
        return 0;
    }

    const AlternateScreen screen;
    draw(true);
    const std::string name = std::string(kStatusFiguresFile);
    for (;;) {
        pollfd entries[2] = {{signalFd.get(), POLLIN, 0}, {watchFd.get(), POLLIN, 0}};
        if (::poll(entries, 2, -1) < 0) {
            if (errno == EINTR) continue;
            return 1;
        }
        if (entries[0].revents & POLLIN) {
            signalfd_siginfo info{};
            if (::read(signalFd.get(), &info, sizeof(info)) == static_cast<ssize_t>(sizeof(info)) &&
                info.ssi_signo != SIGWINCH)
                return 0;
            draw(true);
        }
        if (entries[1].revents & POLLIN) {
            alignas(inotify_event) char buffer[4096];
            bool ours = false;
            for (;;) {
                const auto n = ::read(watchFd.get(), buffer, sizeof(buffer));
                if (n <= 0) break;
                for (std::size_t at = 0; at < static_cast<std::size_t>(n);) {
                    const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
                    if (event->len > 0 && name == event->name) ours = true;
                    at += sizeof(inotify_event) + event->len;
                }
            }
            if (ours) draw(true);
        }
    }
}

}  // namespace vantrelle
