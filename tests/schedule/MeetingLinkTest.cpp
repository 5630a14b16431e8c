#include <gtest/gtest.h>

#include "schedule/MeetingLink.h"

namespace vantrelle {
namespace {

TEST(MeetingLinkTest, FindsTheJoinLinkInUrlThenLocationThenNotes) {
    const struct {
        const char* name;
        const char* url;
        const char* location;
        const char* notes;
        std::optional<std::string> expected;
    } rows[] = {
        {"url field first", "https://zoom.us/j/111", "https://meet.google.com/aaa-bbbb-ccc", "",
         "https://zoom.us/j/111"},
        {"a plain web page in the url field gives the notes' link", "https://example.com/agenda", "",
         "Join https://zoom.us/j/222", "https://zoom.us/j/222"},
        {"location before notes", "", "https://teams.microsoft.com/l/meetup-join/x", "https://zoom.us/j/333",
         "https://teams.microsoft.com/l/meetup-join/x"},
        {"plain location, then the first of two links in the notes", "", "Room 4",
         "a https://meet.google.com/first and https://zoom.us/j/second", "https://meet.google.com/first"},
        {"an upper-case host matches and keeps its case", "", "", "HTTPS://ZOOM.US/J/444",
         "HTTPS://ZOOM.US/J/444"},
        {"a Slack link that is no huddle", "", "", "https://app.slack.com/client/T1/C2", std::nullopt},
        {"a Slack huddle", "", "", "https://app.slack.com/huddle/T1/C2",
         "https://app.slack.com/huddle/T1/C2"},
        {"a host inside another link's query", "", "",
         "https://safelinks.example.net/?url=https%3A%2F%2Fzoom.us%2Fj%2F5",
         "https://safelinks.example.net/?url=https%3A%2F%2Fzoom.us%2Fj%2F5"},
        {"a bare host with a path gets a scheme", "", "meet.google.com/abc-defg-hij", "",
         "http://meet.google.com/abc-defg-hij"},
        {"sentence punctuation is no part of the link", "", "", "Join (https://zoom.us/j/555).",
         "https://zoom.us/j/555"},
        {"an address is no link", "", "", "Questions to host@zoom.us", std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CalendarEvent event;
        event.url = row.url;
        event.location = row.location;
        event.notes = row.notes;
        EXPECT_EQ(MeetingLink::url(event), row.expected);
    }
}

}  // namespace
}  // namespace vantrelle
