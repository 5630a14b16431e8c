#include "schedule/MeetingLink.h"

#include <algorithm>
#include <cctype>

namespace vantrelle::MeetingLink {

namespace {

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

bool isLinkBreak(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0 || c == '<' || c == '>' || c == '"' ||
           c == '\'' || c == '`' || c == '{' || c == '}' || c == '|' || c == '\\' || c == '^';
}

bool isSchemeChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '+' || c == '-' || c == '.';
}

// Sentence punctuation after a link belongs to the sentence; a ")" only when the link opened none.
std::string_view trimTrail(std::string_view link) {
    while (!link.empty()) {
        const char last = link.back();
        const bool closesOwnParen = last == ')' && std::count(link.begin(), link.end(), '(') >=
                                                       std::count(link.begin(), link.end(), ')');
        if (std::string_view(".,;:!?]").find(last) == std::string_view::npos &&
            (last != ')' || closesOwnParen))
            break;
        link.remove_suffix(1);
    }
    return link;
}

// "label.label.tld/…": a host of letters, digits and hyphens with a dot and a letters-only top label.
bool looksLikeBareHost(std::string_view token) {
    const auto slash = token.find('/');
    const std::string_view host = token.substr(0, slash);
    const auto lastDot = host.rfind('.');
    if (lastDot == std::string_view::npos || lastDot == 0 || lastDot + 2 > host.size()) return false;
    for (char c : host) {
        if (std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '-' && c != '.') return false;
    }
    const std::string_view top = host.substr(lastDot + 1);
    return std::all_of(top.begin(), top.end(),
                       [](char c) { return std::isalpha(static_cast<unsigned char>(c)); }) &&
           (slash != std::string_view::npos || host.rfind("www.", 0) == 0);
}

std::optional<std::string> linkInToken(std::string_view token) {
    if (const auto marker = token.find("://"); marker != std::string_view::npos && marker > 0) {
        auto begin = marker;
        while (begin > 0 && isSchemeChar(token[begin - 1])) --begin;
        while (begin < marker && std::isalpha(static_cast<unsigned char>(token[begin])) == 0) ++begin;
        if (begin == marker) return std::nullopt;
        const auto link = trimTrail(token.substr(begin));
        if (link.size() <= marker - begin + 3) return std::nullopt;
        return std::string(link);
    }
    while (!token.empty() && std::isalnum(static_cast<unsigned char>(token.front())) == 0)
        token.remove_prefix(1);
    token = trimTrail(token);
    if (token.find('@') != std::string_view::npos || !looksLikeBareHost(token)) return std::nullopt;
    return "http://" + std::string(token);
}

}  // namespace

bool matches(std::string_view url) {
    const std::string text = lower(url);
    return std::any_of(kPatterns.begin(), kPatterns.end(),
                       [&](std::string_view pattern) { return text.find(pattern) != std::string::npos; });
}

std::vector<std::string> linksIn(std::string_view text) {
    std::vector<std::string> links;
    std::size_t position = 0;
    while (position < text.size()) {
        while (position < text.size() && isLinkBreak(text[position])) ++position;
        auto end = position;
        while (end < text.size() && !isLinkBreak(text[end])) ++end;
        if (end > position) {
            if (auto link = linkInToken(text.substr(position, end - position)))
                links.push_back(std::move(*link));
        }
        position = end;
    }
    return links;
}

std::optional<std::string> firstMatchingUrl(std::string_view text) {
    for (auto& link : linksIn(text)) {
        if (matches(link)) return std::move(link);
    }
    return std::nullopt;
}

std::optional<std::string> url(const CalendarEvent& event) {
    if (!event.url.empty() && matches(event.url)) return event.url;
    for (const std::string* text : {&event.location, &event.notes}) {
        if (auto link = firstMatchingUrl(*text)) return link;
    }
    return std::nullopt;
}

std::string_view serviceName(std::string_view url) {
    const std::string text = lower(url);
    constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kLabels{{
        {"zoom.us", "Zoom"},
        {"meet.google", "Meet"},
        {"teams.", "Teams"},
        {"webex", "Webex"},
        {"facetime", "FaceTime"},
        {"slack.com", "Huddle"},
    }};
    for (const auto& [part, label] : kLabels) {
        if (text.find(part) != std::string::npos) return label;
    }
    return "Join";
}

}  // namespace vantrelle::MeetingLink
