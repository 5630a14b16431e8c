// Reading a folder of 2,000 .ics files, as a vdir keeps one file per event: the first read (every file
// parsed, every series expanded for the day) should take under 0.5 s on the development machine, and
// a refresh with nothing changed should parse nothing at all (counted, not timed: the bench fails if
// it parses a file).
//
// The files are generated once into the temporary folder: one calendar in four folders, a fifth of
// them weekly series with an EXDATE, a tenth all-day, some in another zone, attendees on every tenth.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "schedule/CalendarLibrary.h"
#include "support/LocalCalendar.h"

namespace {

namespace fs = std::filesystem;

constexpr int kFiles = 2000;

std::string eventText(int i) {
    const int day = 1 + i % 28;
    char start[32];
    std::snprintf(start, sizeof start, "202611%02dT%02d%02d00", day, 8 + i % 10, (i * 7) % 60);
    std::string body = "BEGIN:VEVENT\r\nUID:bench-" + std::to_string(i) + "\r\nSUMMARY:Meeting " +
                       std::to_string(i) + "\r\nDTSTAMP:20261001T000000Z\r\n";
    if (i % 10 == 0) {
        char date[16];
        std::snprintf(date, sizeof date, "202611%02d", day);
        body += std::string("DTSTART;VALUE=DATE:") + date + "\r\n";
    } else if (i % 7 == 0) {
        body += std::string("DTSTART;TZID=America/New_York:") + start + "\r\nDURATION:PT45M\r\n";
    } else {
        body += std::string("DTSTART;TZID=Europe/Berlin:") + start + "\r\nDURATION:PT30M\r\n";
    }
    if (i % 5 == 1) body += "RRULE:FREQ=WEEKLY\r\nEXDATE;TZID=Europe/Berlin:20261215T090000\r\n";
    if (i % 10 == 3) {
        body +=
            "ATTENDEE;CN=Ann;PARTSTAT=ACCEPTED:mailto:ann@example.com\r\n"
            "ATTENDEE;PARTSTAT=DECLINED:mailto:me@example.com\r\n";
    }
    body += "LOCATION:Room " + std::to_string(i % 12) + "\r\nDESCRIPTION:Join https://zoom.us/j/" +
            std::to_string(1000000000 + i) + "\r\nEND:VEVENT\r\n";
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//bench//EN\r\n" + body + "END:VCALENDAR\r\n";
}

fs::path generatedFolder() {
    const fs::path root = fs::temp_directory_path() / "vantrelle-bench-calendars";
    if (fs::exists(root / ".done")) return root;
    fs::remove_all(root);
    for (int i = 0; i < kFiles; ++i) {
        const fs::path folder = root / ("calendar-" + std::to_string(i % 4));
        fs::create_directories(folder);
        std::ofstream(folder / ("event-" + std::to_string(i) + ".ics"), std::ios::binary) << eventText(i);
    }
    std::ofstream(root / ".done") << "ok";
    return root;
}

const vantrelle::Date kDay = vantrelle::LocalCalendar::startOfDay(vantrelle::Date{1794222000});  // 2026-11-09

void BM_FirstRead(benchmark::State& state) {
    const fs::path root = generatedFolder();
    std::size_t events = 0;
    for (auto _ : state) {
        vantrelle::CalendarLibrary library({root}, {"me@example.com"});
        library.refresh();
        events = library.events(kDay, vantrelle::LocalCalendar::addDays(kDay, 1)).size();
        benchmark::DoNotOptimize(events);
    }
    state.counters["files"] = kFiles;
    state.counters["events"] = static_cast<double>(events);
}
BENCHMARK(BM_FirstRead)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_UnchangedRefresh(benchmark::State& state) {
    const fs::path root = generatedFolder();
    vantrelle::CalendarLibrary library({root}, {"me@example.com"});
    library.refresh();
    const auto parsed = library.parseCount();
    for (auto _ : state) {
        benchmark::DoNotOptimize(library.refresh());
    }
    if (library.parseCount() != parsed) state.SkipWithError("a refresh over unchanged files parsed a file");
    state.counters["parsed"] = static_cast<double>(library.parseCount() - parsed);
}
BENCHMARK(BM_UnchangedRefresh)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
