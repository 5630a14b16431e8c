#include <gtest/gtest.h>

#include <clocale>

#include "agents/IsoDate.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "wrapped/WrappedSummary.h"

namespace vantrelle {
namespace {

Date at(std::string_view iso) {
    return *parseIsoDate(iso);
}

class WrappedSummaryTest : public ::testing::Test {
protected:
    WrappedSummaryTest() {
        // The C locale names Sunday as the first day of the week; weeks here start on Monday anyway.
        std::setlocale(LC_TIME, "C");
    }

    WrappedHistory& history(Date firstRun) {
        clock.setNow(firstRun);
        m_history = std::make_unique<WrappedHistory>(dir / "wrapped-history.json", clock, false);
        return *m_history;
    }
    WrappedSources sources() const {
        WrappedSources s;
        s.history = m_history.get();
        return s;
    }

    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    VirtualScheduler clock;
    std::unique_ptr<WrappedHistory> m_history;
};

TEST_F(WrappedSummaryTest, WeeksStartOnMondayInEveryLocale) {
    const struct {
        const char* now;
        WrappedPeriod period;
        const char* start;
        const char* end;
    } rows[] = {
        {"2027-03-01T09:30:00Z", WrappedPeriod::thisWeek, "2027-03-01T00:00:00Z", "2027-03-01T09:30:00Z"},
        {"2027-03-07T23:00:00Z", WrappedPeriod::thisWeek, "2027-03-01T00:00:00Z", "2027-03-07T23:00:00Z"},
        {"2027-03-07T23:00:00Z", WrappedPeriod::lastWeek, "2027-02-22T00:00:00Z", "2027-03-01T00:00:00Z"},
        {"2027-01-15T12:00:00Z", WrappedPeriod::lastMonth, "2026-12-01T00:00:00Z", "2027-01-01T00:00:00Z"},
        {"2027-03-31T12:00:00Z", WrappedPeriod::thisMonth, "2027-03-01T00:00:00Z", "2027-03-31T12:00:00Z"},
        {"2027-03-31T12:00:00Z", WrappedPeriod::thisYear, "2027-01-01T00:00:00Z", "2027-03-31T12:00:00Z"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(wrappedRange(row.period, at(row.now)), (DateRange{at(row.start), at(row.end)}))
            << rawName(row.period) << " at " << row.now;
    }
}

TEST_F(WrappedSummaryTest, SumsTheLedgerAndATieKeepsTheEarlierFocusedDay) {
    auto& ledger = history(at("2027-02-01T08:00:00Z"));
    clock.setNow(at("2027-03-02T10:00:00Z"));
    ledger.recordFocusBlock(60);
    ledger.recordFocusBlock(60);
    ledger.recordMeetingJoined();
    clock.setNow(at("2027-03-04T10:00:00Z"));
    ledger.recordFocusBlock(120);
    ledger.recordAITokens({{at("2027-03-04T10:00:00Z"), 5000}});
    clock.setNow(at("2027-03-09T10:00:00Z"));
    ledger.recordFocusBlock(500);  // next week: outside the range

    auto s = sources();
    s.aiTokens = [](Date, Date) -> std::int64_t { return 4000; };
    const auto week = WrappedSummary::make(WrappedPeriod::lastWeek, at("2027-03-10T10:00:00Z"), s);
    EXPECT_EQ(week.rangeText(), "1 Mar \u2013 7 Mar");
    EXPECT_EQ(std::make_tuple(week.focusBlocks, week.focusMinutes, week.meetingsJoined),
              std::make_tuple(3, 240, 1));
    EXPECT_EQ(week.aiTokens, 5000) << "the ledger outlives pruned logs";
    EXPECT_EQ(week.mostFocusedDayText(), "Tuesday");
    s.aiTokens = [](Date, Date) -> std::int64_t { return 9000; };
    EXPECT_EQ(WrappedSummary::make(WrappedPeriod::lastWeek, at("2027-03-10T10:00:00Z"), s).aiTokens, 9000);
    const auto month = WrappedSummary::make(WrappedPeriod::thisMonth, at("2027-03-10T10:00:00Z"), s);
    EXPECT_EQ(month.mostFocusedDayText(), "Tuesday 9 Mar");
    EXPECT_EQ(WrappedSummary::make(WrappedPeriod::lastMonth, at("2027-03-10T10:00:00Z"), s).title(),
              "Your February");
}

TEST_F(WrappedSummaryTest, OtherStoresAreAskedForAnInclusiveRange) {
    history(at("2027-01-01T08:00:00Z"));
    std::pair<Date, Date> asked;
    auto s = sources();
    s.appSeconds = [&](Date from, Date to) {
        asked = {from, to};
        return std::vector<std::pair<std::string, double>>{{"Terminal", 179}, {"Files", 20}};
    };
    s.cursorMeters = [](Date, Date) { return std::vector<double>{400, 700.5}; };
    auto summary = WrappedSummary::make(WrappedPeriod::lastWeek, at("2027-03-10T10:00:00Z"), s);
    EXPECT_EQ(asked, std::make_pair(at("2027-03-01T00:00:00Z"), at("2027-03-07T23:59:59Z")));
    EXPECT_FALSE(summary.topApp) << "2 min 59 s is no top app";
    EXPECT_DOUBLE_EQ(summary.cursorKm, 1.1005);
    s.appSeconds = [](Date, Date) { return std::vector<std::pair<std::string, double>>{{"Terminal", 180}}; };
    summary = WrappedSummary::make(WrappedPeriod::lastWeek, at("2027-03-10T10:00:00Z"), s);
    EXPECT_EQ(summary.topApp, (WrappedSummary::TopApp{"Terminal", 0.05}));
}

TEST(WrappedTexts, CursorMilestonesAndRounding) {
    const std::pair<double, const char*> rows[] = {
        {0.4567, "Your cursor travelled 457 m"}, {1.0, "Your cursor travelled 1.0 km"},
        {4.96, "Your cursor travelled 5.0 km"},  {5.0, "Your cursor ran a 5K"},
        {21.09, "Your cursor ran a 10K"},        {21.1, "Your cursor ran a half marathon"},
        {42.195, "Your cursor ran a marathon"},  {84.38, "Your cursor ran a marathon"},
        {84.39, "Your cursor ran 2 marathons"},
    };
    for (const auto& [km, text] : rows) {
        WrappedSummary summary;
        summary.cursorKm = km;
        EXPECT_EQ(summary.cursorMilestone(), text) << km;
    }
    WrappedSummary summary;
    summary.cursorKm = 9.96;
    EXPECT_EQ(summary.cursorText(), "10.0 km");
    summary.cursorKm = 10.5;
    EXPECT_EQ(summary.cursorText(), "11 km");
    summary.focusMinutes = 599;
    EXPECT_EQ(summary.focusHoursText(), "10.0 h");
    summary.focusMinutes = 630;
    EXPECT_EQ(summary.focusHoursText(), "11 h");
}

}  // namespace
}  // namespace vantrelle
