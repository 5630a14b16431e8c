#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schedule/CalendarEvent.h"

namespace vantrelle::MeetingLink {

// What makes a link a video call: a provider's host (or host and path) anywhere in the lower-cased
// URL, so a call link wrapped in another link's query string counts too. In this order.
inline constexpr std::array<std::string_view, 15> kPatterns{
    "zoom.us",               // Zoom
    "meet.google.com",       // Google Meet
    "teams.microsoft.com",   // Teams, work accounts
    "teams.live.com",        // Teams, personal accounts
    "webex.com",             // Webex
    "whereby.com",           // Whereby
    "around.co",             // Around
    "gather.town",           // Gather
    "meet.jit.si",           // Jitsi Meet's public service
    "facetime.apple.com",    // FaceTime links
    "app.slack.com/huddle",  // Slack huddles; other Slack links are no call
    "discord.gg",            // Discord invites
    "riverside.fm",          // Riverside
    "tuple.app",             // Tuple
    "gotomeeting.com",       // GoTo Meeting
};

[[nodiscard]] bool matches(std::string_view url);

// The links of a text in text order: anything with a scheme ("https://…"), "www." names and bare
// host names with a path ("zoom.us/j/1"), the latter given "http://". Trailing punctuation is not
// part of a link. E-mail addresses are not links here: an attendee's address is no place to join.
[[nodiscard]] std::vector<std::string> linksIn(std::string_view text);

// The first link of the text that is a call link.
[[nodiscard]] std::optional<std::string> firstMatchingUrl(std::string_view text);

// The event's join link: its URL property if that is a call link, else the first call link of the
// location, else of the notes.
[[nodiscard]] std::optional<std::string> url(const CalendarEvent& event);

// What the Join button says: "Zoom", "Meet", "Teams", "Webex", "FaceTime", "Huddle", or "Join".
[[nodiscard]] std::string_view serviceName(std::string_view url);

}  // namespace vantrelle::MeetingLink
