#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/TempDir.h"
#include "schedule/CalendarLibrary.h"
#include "schedule/TodoCompletion.h"

namespace vantrelle {
namespace {

constexpr Date kWhen{1793692800};  // 2026-11-03 08:00:00 UTC

TEST(TodoCompletionTest, ReplacesTheStatusLineAndAddsACompletionTimeLeavingEveryOtherByte) {
    const std::string before =
        "BEGIN:VCALENDAR\r\nX-ODD:keep  me\r\nBEGIN:VTODO\r\nUID:pay\r\nSUMMARY:Pay the\r\n  rent\r\n"
        "STATUS:NEEDS-ACTION\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\nSTATUS:unrelated\r\nEND:VALARM\r\nEND:"
        "VTODO\r\n"
        "BEGIN:VTODO\r\nUID:other\r\nSTATUS:NEEDS-ACTION\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";
    const std::string after =
        "BEGIN:VCALENDAR\r\nX-ODD:keep  me\r\nBEGIN:VTODO\r\nUID:pay\r\nSUMMARY:Pay the\r\n  rent\r\n"
        "STATUS:COMPLETED\r\nCOMPLETED:20261103T080000Z\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\nSTATUS:"
        "unrelated\r\n"
        "END:VALARM\r\nEND:VTODO\r\n"
        "BEGIN:VTODO\r\nUID:other\r\nSTATUS:NEEDS-ACTION\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";
    EXPECT_EQ(TodoCompletion::markCompleted(before, "pay", kWhen), after);
}

TEST(TodoCompletionTest, AddsAStatusWhereThereWasNoneAndKeepsAFoldedStatusOut) {
    EXPECT_EQ(TodoCompletion::markCompleted("BEGIN:VTODO\nUID:a\nEND:VTODO\n", "a", kWhen),
              "BEGIN:VTODO\nUID:a\nSTATUS:COMPLETED\nCOMPLETED:20261103T080000Z\nEND:VTODO\n");
    EXPECT_EQ(
        TodoCompletion::markCompleted("BEGIN:VTODO\nUID:a\nstatus:IN-PR\n OCESS\nCOMPLETED:20200101T000000Z\n"
                                      "END:VTODO\n",
                                      "a", kWhen),
        "BEGIN:VTODO\nUID:a\nSTATUS:COMPLETED\nCOMPLETED:20200101T000000Z\nEND:VTODO\n");
}

TEST(TodoCompletionTest, AnUnknownUidOrAnUnendedTodoChangesNothing) {
    EXPECT_FALSE(TodoCompletion::markCompleted("BEGIN:VTODO\nUID:a\nEND:VTODO\n", "b", kWhen));
    EXPECT_FALSE(TodoCompletion::markCompleted("BEGIN:VTODO\nUID:a\n", "a", kWhen));
    EXPECT_FALSE(TodoCompletion::markCompleted("BEGIN:VEVENT\nUID:a\nEND:VEVENT\n", "a", kWhen));
}

TEST(TodoCompletionTest, TheFileIsWrittenInPlaceKeepsItsModeAndReadsBackAsCompleted) {
    testing::TempDir dir;
    const auto file =
        dir.write("tasks/todo.ics",
                  "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nUID:t\nSUMMARY:Send\nDUE;VALUE=DATE:20261103\n"
                  "END:VTODO\nEND:VCALENDAR\n");
    ::chmod(file.c_str(), 0640);
    ASSERT_TRUE(TodoCompletion::markCompletedInFile(file, "t", kWhen));
    struct stat info {};
    ::stat(file.c_str(), &info);
    EXPECT_EQ(info.st_mode & 0777, 0640u);
    CalendarLibrary library({dir / "tasks"}, {});
    library.refresh();
    const auto todos = library.todos(Date{1793660000}, Date{1793800000});
    ASSERT_EQ(todos.size(), 1u);
    EXPECT_TRUE(todos[0].completed);

    const std::string text = dir.read("tasks/todo.ics");
    EXPECT_FALSE(TodoCompletion::markCompletedInFile(file, "missing", kWhen));
    EXPECT_EQ(dir.read("tasks/todo.ics"), text);
    EXPECT_FALSE(TodoCompletion::markCompletedInFile(dir / "tasks/gone.ics", "t", kWhen));
}

}  // namespace
}  // namespace vantrelle
