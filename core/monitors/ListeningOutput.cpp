#include "monitors/ListeningOutput.h"

#include <charconv>
#include <limits>
#include <optional>

namespace vantrelle {
namespace {

template <typename Number>
std::optional<Number> parseNumber(std::string_view text, int base = 10) {
    Number value{};
    const char* end = text.data() + text.size();
    auto [ptr, ec] = std::from_chars(text.data(), end, value, base);
    if (ec != std::errc() || ptr != end || text.empty()) return std::nullopt;
    return value;
}

// Calls `line` for each line of `text`, without its line break.
template <typename Visit>
void forEachLine(std::string_view text, Visit&& line) {
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view current = text.substr(0, end);
        if (!current.empty() && current.back() == '\r') current.remove_suffix(1);
        line(current);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
}

// The next blank-separated field of `text`, consumed.
std::string_view nextField(std::string_view& text) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) {
        text = {};
        return {};
    }
    text.remove_prefix(start);
    const std::size_t end = text.find(' ');
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end);
    return field;
}

constexpr std::int64_t kMaxPort = 65535;

}  // namespace

std::vector<ListeningSocket> parseLsofListing(std::string_view text) {
    std::vector<ListeningSocket> sockets;
    pid_t pid = 0;
    std::string command;
    forEachLine(text, [&](std::string_view line) {
        if (line.empty()) return;
        const std::string_view value = line.substr(1);
        switch (line.front()) {
            case 'p':
                pid = parseNumber<pid_t>(value).value_or(0);
                break;
            case 'c':
                command.assign(value);
                break;
            case 'n': {
                const std::size_t colon = value.rfind(':');
                if (colon == std::string_view::npos) break;
                const auto port = parseNumber<std::int64_t>(value.substr(colon + 1));
                if (port && *port >= 0 && *port <= kMaxPort) sockets.push_back({pid, command, *port});
                break;
            }
            default:
                break;
        }
    });
    return sockets;
}

std::vector<KernelListener> parseProcNetTcp(std::string_view text) {
    constexpr std::string_view kListen = "0A";
    std::vector<KernelListener> listeners;
    forEachLine(text, [&](std::string_view line) {
        // "sl local_address rem_address st tx_queue:rx_queue tr:tm->when retrnsmt uid timeout inode ..."
        const std::string_view slot = nextField(line);
        if (slot.empty() || slot.back() != ':') return;  // the header, or garbage
        const std::string_view local = nextField(line);
        nextField(line);  // remote address
        if (nextField(line) != kListen) return;
        for (int skipped = 0; skipped < 5; ++skipped) nextField(line);
        const auto inode = parseNumber<std::uint64_t>(nextField(line));
        const std::size_t colon = local.rfind(':');
        if (!inode || colon == std::string_view::npos) return;
        const auto port = parseNumber<std::int64_t>(local.substr(colon + 1), 16);
        if (!port || *port > kMaxPort) return;
        listeners.push_back({*port, *inode});
    });
    return listeners;
}

}  // namespace vantrelle
