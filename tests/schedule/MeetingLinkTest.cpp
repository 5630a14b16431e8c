#include <gtest/gtest.h>

#include "schedule/MeetingLink.h"

namespace vantrelle {
namespace {

struct LinkCase {
    const char* name;
    const char* url;
    const char* location;
    const char* notes;
    std::optional<std::string> expected;
};

class MeetingLinkEventTest : public ::testing::TestWithParam<LinkCase> {};

TEST_P(MeetingLinkEventTest, FindsTheJoinLink) {
    const auto& row = GetParam();
    CalendarEvent event;
    event.url = row.url;
    event.location = row.location;
    event.notes = row.notes;
    EXPECT_EQ(MeetingLink::url(event), row.expected) << row.name;
}

INSTANTIATE_TEST_SUITE_P(
    Order, MeetingLinkEventTest,
    ::testing::Values(LinkCase{"UrlFieldFirst", "https://zoom.us/j/111",
                               "https://meet.google.com/aaa-bbbb-ccc", "", "https://zoom.us/j/111"},
                      LinkCase{"PlainWebPageInUrlFieldGivesTheNotesLink", "https://example.com/agenda", "",
                               "Join https://zoom.us/j/222", "https://zoom.us/j/222"},
                      LinkCase{"LocationBeforeNotes", "", "https://teams.microsoft.com/l/meetup-join/x",
                               "https://zoom.us/j/333", "https://teams.microsoft.com/l/meetup-join/x"},
                      LinkCase{"PlainLocationThenFirstOfTwoNotesLinks", "", "Room 4",
                               "a https://meet.google.com/first and https://zoom.us/j/second",
                               "https://meet.google.com/first"},
                      LinkCase{"OtherLinksArePassedOver", "", "",
                               "Docs: https://docs.example.com/x then https://whereby.com/team",
                               "https://whereby.com/team"},
                      LinkCase{"UpperCaseHostMatchesAndKeepsItsCase", "", "", "HTTPS://ZOOM.US/J/444",
                               "HTTPS://ZOOM.US/J/444"},
                      LinkCase{"SlackLinkThatIsNoHuddle", "", "", "https://app.slack.com/client/T1/C2",
                               std::nullopt},
                      LinkCase{"SlackHuddle", "", "", "https://app.slack.com/huddle/T1/C2",
                               "https://app.slack.com/huddle/T1/C2"},
                      LinkCase{"HostInsideAnotherLinksQuery", "", "",
                               "https://safelinks.example.net/?url=https%3A%2F%2Fzoom.us%2Fj%2F5",
                               "https://safelinks.example.net/?url=https%3A%2F%2Fzoom.us%2Fj%2F5"},
                      LinkCase{"BareHostWithPathGetsAScheme", "", "meet.google.com/abc-defg-hij", "",
                               "http://meet.google.com/abc-defg-hij"},
                      LinkCase{"SentencePunctuationIsNoPartOfTheLink", "", "",
                               "Join (https://zoom.us/j/555).", "https://zoom.us/j/555"},
                      LinkCase{"AnAddressIsNoLink", "", "", "Questions to host@zoom.us", std::nullopt},
                      LinkCase{"NothingAnywhere", "", "", "", std::nullopt}),
    [](const auto& row) { return std::string(row.param.name); });

struct LabelCase {
    const char* url;
    const char* label;
};

class MeetingLinkLabelTest : public ::testing::TestWithParam<LabelCase> {};

TEST_P(MeetingLinkLabelTest, NamesTheService) {
    EXPECT_EQ(MeetingLink::serviceName(GetParam().url), GetParam().label) << GetParam().url;
}

INSTANTIATE_TEST_SUITE_P(Labels, MeetingLinkLabelTest,
                         ::testing::Values(LabelCase{"https://us02web.zoom.us/j/1", "Zoom"},
                                           LabelCase{"https://meet.google.com/x", "Meet"},
                                           LabelCase{"https://teams.microsoft.com/l/x", "Teams"},
                                           LabelCase{"https://acme.webex.com/meet/x", "Webex"},
                                           LabelCase{"https://facetime.apple.com/join#v=1", "FaceTime"},
                                           LabelCase{"https://app.slack.com/huddle/T1/C2", "Huddle"},
                                           LabelCase{"https://whereby.com/room", "Join"}));

TEST(MeetingLinkTest, EveryProviderHostIsACallLink) {
    for (auto pattern : MeetingLink::kPatterns) {
        EXPECT_TRUE(MeetingLink::matches("https://" + std::string(pattern) + "/x")) << pattern;
    }
    EXPECT_FALSE(MeetingLink::matches("https://example.com/meeting"));
}

TEST(MeetingLinkTest, LinksComeInTextOrder) {
    EXPECT_EQ(MeetingLink::linksIn("b https://b.example/x, a www.a.example and ftp://c.example/z"),
              (std::vector<std::string>{"https://b.example/x", "http://www.a.example", "ftp://c.example/z"}));
}

}  // namespace
}  // namespace vantrelle
