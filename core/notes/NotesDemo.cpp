#include "notes/NotesDemo.h"

namespace vantrelle {

namespace {

constexpr double kMinute = 60;
constexpr double kHour = 3600;
constexpr double kDay = 86400;

}  // namespace

std::vector<Note> NotesDemo::notes(Date now) {
    return {
        {"6C1E0F3A-2B8D-4E7A-9C51-0D4F8A2B6E01",
         "Standup\nRail overflow fix is in review, needs a second pair of eyes\n- agent finished the "
         "migration script overnight\n- ask about the staging database quota",
         now - 2 * kHour, now - 40 * kMinute},
        {"6C1E0F3A-2B8D-4E7A-9C51-0D4F8A2B6E02",
         "Prompt ideas for the refactor\nGive the agent the failing test first, then the module map\nKeep "
         "each session under one 5-hour window",
         now - kDay, now - 5 * kHour},
        {"6C1E0F3A-2B8D-4E7A-9C51-0D4F8A2B6E03",
         "Release checklist\nBump the version and tag\nRun the full test suite under the sanitizers\n"
         "Record the 60-second tour",
         now - 2 * kDay, now - 2 * kDay + kHour},
        {"6C1E0F3A-2B8D-4E7A-9C51-0D4F8A2B6E04",
         "Reading list\nThe paper on speculative decoding\nThe post about flaky timers in UI tests",
         now - 4 * kDay, now - 4 * kDay},
    };
}

std::vector<TodoItem> NotesDemo::tasks(Date now) {
    return {
        {"9B7D2C4E-1A3F-4B6C-8D2E-5F0A1C3E7B01", "Fix rail overflow", false, now - 3 * kHour, std::nullopt},
        {"9B7D2C4E-1A3F-4B6C-8D2E-5F0A1C3E7B02", "Record the 60-second tour", false, now - 2 * kHour,
         std::nullopt},
        {"9B7D2C4E-1A3F-4B6C-8D2E-5F0A1C3E7B03", "Review the agent's migration PR", false, now - kHour,
         std::nullopt},
        {"9B7D2C4E-1A3F-4B6C-8D2E-5F0A1C3E7B04", "Reply to the design thread", false, now - 50 * kMinute,
         std::nullopt},
        {"9B7D2C4E-1A3F-4B6C-8D2E-5F0A1C3E7B05", "Update the changelog", true, now - kDay, now - 4 * kHour},
        {"9B7D2C4E-1A3F-4B6C-8D2E-5F0A1C3E7B06", "Rotate the staging API key", true, now - kDay,
         now - 2 * kHour},
    };
}

}  // namespace vantrelle
