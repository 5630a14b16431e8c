#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "Application.h"
#include "fakes/TempDir.h"
#include "support/AtomicFile.h"
#include "support/SharedInstance.h"

// Read by LeakSanitizer in sanitizer builds. fontconfig keeps its configuration until the process
// ends, by design; Qt's font database loads it once when the shell's QML first draws text.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

// The files are seconds since 2001-01-01 00:00:00 UTC.
constexpr double kReferenceDate = 978'307'200.0;

// Offscreen and without any X display, whatever the environment the tests run in.
QApplication& qtApplication() {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::unsetenv("DISPLAY");
    static int argc = 1;
    static char name[] = "app_composition_tests";
    static char* argv[] = {name, nullptr};
    static auto* app = new QApplication(argc, argv);  // the tray menu is a widget
    return *app;
}

// The real program, built by its own composition root on an offscreen platform, in a home of its own.
class ApplicationTest : public ::testing::Test {
protected:
    void SetUp() override { (void)qtApplication(); }

    TempDir home;
    MapEnvironment environment{{{"HOME", home.path().string()}}};
    fs::path history = home / ".local/share/Vantrelle/wrapped-history.json";
};

TEST_F(ApplicationTest, AMigratedWrappedHistorySurvivesTheLaunchAndTheNextSave) {
    const Date now = SystemClock::shared().now();
    const std::string yesterday = WrappedHistory::key(now - 86'400);
    const double since = (now - 30 * 86'400).seconds - kReferenceDate;
    nlohmann::json legacy = {
        {"days",
         {{yesterday, {{"focusBlocks", 4}, {"focusMinutes", 100}, {"meetingsJoined", 2}, {"aiTokens", 7}}}}},
        {"trackingSince", since}};
    home.write(".local/share/Kestrand/wrapped-history.json", legacy.dump());

    {
        Application app(environment);
        app.launch();
        SharedInstance<WrappedHistory>::get().recordMeetingJoined();  // the next save
    }

    const auto saved = nlohmann::json::parse(*readWholeFile(history));
    EXPECT_EQ(saved["days"][yesterday], legacy["days"][yesterday]) << saved.dump();
    EXPECT_DOUBLE_EQ(saved["trackingSince"].get<double>(), since);
}

TEST_F(ApplicationTest, QuittingRightAfterTypingKeepsTheNote) {
    const fs::path notes = home / ".local/share/Vantrelle/notes.json";
    {
        Application app(environment);
        app.launch();
        SharedInstance<NotesStore>::get().setText("typed just before quitting");
        // The debounce is still waiting; only the end of the event loop can have saved it.
        ASSERT_EQ(readWholeFile(notes).value_or("").find("typed"), std::string::npos);
        QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                                  Qt::QueuedConnection);
        QCoreApplication::exec();
    }
    EXPECT_NE(readWholeFile(notes).value_or("").find("typed just before quitting"), std::string::npos);
}

// A killed writer's temporary files go, and an unreadable settings file is moved aside before the first
// save replaces it.
TEST_F(ApplicationTest, StartCleansUpAfterAKilledWriterAndMovesAnUnreadableDefaultsFileAside) {
    const std::vector<fs::path> leftovers = {
        home.write(".config/Vantrelle/" + temporaryFilePrefix("defaults.json") + "Ab12Cd", "{\"half"),
        home.write(".claude/" + temporaryFilePrefix("settings.json") + "Zx5Cv6", "{"),
    };
    const std::string handEdited = "{\"showDock\": false, \"hoverDelay\": 0.5,}";
    home.write(".config/Vantrelle/defaults.json", handEdited);
    {
        Application app(environment);
        for (const auto& file : leftovers) EXPECT_FALSE(fs::exists(file)) << file;
        SharedInstance<AppSettings>::get().setShowDock(true);
    }
    const auto aside = testing::unreadableCopies(home / ".config/Vantrelle/defaults.json");
    ASSERT_EQ(aside.size(), 1u);
    EXPECT_EQ(home.read(".config/Vantrelle/" + aside[0].filename().string()), handEdited);
    EXPECT_NE(home.read(".config/Vantrelle/defaults.json").find("\"showDock\": true"), std::string::npos);
}

}  // namespace
}  // namespace vantrelle
