#include "schedule/TodoCompletion.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <ctime>
#include <vector>

namespace vantrelle::TodoCompletion {

namespace {

// One property as written: its first physical line and any folded continuation lines.
struct Line {
    std::size_t begin = 0;  // offset of the first byte
    std::size_t end = 0;    // offset past the last line ending
    std::string logical;    // unfolded, without the line ending
};

std::vector<Line> splitLines(std::string_view text) {
    std::vector<Line> lines;
    std::size_t at = 0;
    while (at < text.size()) {
        auto newline = text.find('\n', at);
        const std::size_t next = newline == std::string_view::npos ? text.size() : newline + 1;
        std::string_view content = text.substr(at, next - at);
        while (!content.empty() && (content.back() == '\n' || content.back() == '\r'))
            content.remove_suffix(1);
        const bool folded = !lines.empty() && (text[at] == ' ' || text[at] == '\t');
        if (folded) {
            lines.back().end = next;
            lines.back().logical += content.substr(1);
        } else {
            lines.push_back({at, next, std::string(content)});
        }
        at = next;
    }
    return lines;
}

std::string upper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return result;
}

// "NAME" of "NAME;PARAM=x:value", upper-cased.
std::string nameOf(const std::string& logical) {
    return upper(logical.substr(0, logical.find_first_of(";:")));
}

std::string valueOf(const std::string& logical) {
    const auto colon = logical.find(':');
    return colon == std::string::npos ? std::string() : logical.substr(colon + 1);
}

std::string utcStamp(Date when) {
    const auto seconds = static_cast<std::time_t>(std::floor(when.seconds));
    std::tm parts{};
    ::gmtime_r(&seconds, &parts);
    char text[24];
    std::strftime(text, sizeof text, "%Y%m%dT%H%M%SZ", &parts);
    return text;
}

struct Block {
    std::size_t status = std::string::npos;  // index of the STATUS line
    bool hasCompleted = false;
    std::size_t insertAt = 0;  // line index before which new properties go
    bool matches = false;
};

std::vector<Block> todoBlocks(const std::vector<Line>& lines, std::string_view uid) {
    std::vector<Block> blocks;
    int depth = 0;  // nesting below the VTODO (its alarms)
    bool inside = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string name = nameOf(lines[i].logical);
        const std::string value = upper(valueOf(lines[i].logical));
        if (!inside) {
            if (name == "BEGIN" && value == "VTODO") {
                inside = true;
                depth = 0;
                blocks.push_back({});
                blocks.back().insertAt = lines.size();
            }
            continue;
        }
        Block& block = blocks.back();
        if (name == "BEGIN") {
            if (depth++ == 0) block.insertAt = std::min(block.insertAt, i);
        } else if (name == "END") {
            if (depth == 0) {
                block.insertAt = std::min(block.insertAt, i);
                inside = false;
            } else {
                --depth;
            }
        } else if (depth == 0) {
            if (name == "UID" && valueOf(lines[i].logical) == uid) block.matches = true;
            if (name == "STATUS") block.status = i;
            if (name == "COMPLETED") block.hasCompleted = true;
        }
    }
    if (inside) blocks.pop_back();  // a VTODO that never ends is left alone
    return blocks;
}

}  // namespace

std::optional<std::string> markCompleted(std::string_view text, std::string_view uid, Date when) {
    const auto lines = splitLines(text);
    const auto blocks = todoBlocks(lines, uid);
    if (std::none_of(blocks.begin(), blocks.end(), [](const Block& b) { return b.matches; }))
        return std::nullopt;
    const std::string ending = text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    // Edits by line index, applied from the end so earlier offsets stay valid.
    std::vector<std::pair<std::size_t, std::string>> inserts;
    std::vector<std::size_t> replaced;
    for (const auto& block : blocks) {
        if (!block.matches) continue;
        std::string added;
        if (block.status != std::string::npos) {
            replaced.push_back(block.status);
        } else {
            added += "STATUS:COMPLETED" + ending;
        }
        if (!block.hasCompleted) added += "COMPLETED:" + utcStamp(when) + ending;
        if (!added.empty()) inserts.emplace_back(block.insertAt, added);
    }
    std::string result;
    result.reserve(text.size() + 64);
    std::size_t copied = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (const auto& [at, added] : inserts) {
            if (at == i) {
                result.append(text.substr(copied, lines[i].begin - copied));
                result += added;
                copied = lines[i].begin;
            }
        }
        if (std::find(replaced.begin(), replaced.end(), i) != replaced.end()) {
            result.append(text.substr(copied, lines[i].begin - copied));
            result += "STATUS:COMPLETED" + ending;
            copied = lines[i].end;
        }
    }
    result.append(text.substr(copied));
    return result;
}

WriteResult markCompletedInFile(const std::filesystem::path& file, std::string_view uid, Date when) {
    const auto read = readRegularFile(file);
    if (read.status != ReadResult::Status::ok) {
        return WriteResult::failure(read.error.empty() ? file.string() + " is missing" : read.error);
    }
    auto marked = markCompleted(read.contents, uid, when);
    if (!marked) return WriteResult::failure(file.string() + " holds no to-do " + std::string(uid));
    return writeFileAtomically(file, *marked);
}

}  // namespace vantrelle::TodoCompletion
