#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/JsonDefaultsStore.h"

namespace vantrelle {
namespace {

using testing::LogCapture;
using testing::TempDir;

TEST(JsonDefaultsStore, EveryTypeSurvivesARestart) {
    TempDir dir;
    const auto file = dir / "config/Vantrelle/defaults.json";
    {
        JsonDefaultsStore store(file);
        store.set("flag", true);
        store.set("count", std::int64_t{9'007'199'254'740'993});  // beyond double precision
        store.set("delay", 1.0);                                  // a whole double stays a double
        store.set("name", std::string("Vantrelle"));
        store.set("tabs", std::vector<std::string>{"calc", "dashboard"});
        store.set("blob", Bytes{0, 1, 2, 250, 255});
        store.set("empty", Bytes{});
        store.set("instants", std::vector<double>{1.5, 1'800'000'000.25});
        store.set("none", std::vector<double>{});
    }
    JsonDefaultsStore reopened(file);
    EXPECT_EQ(reopened.boolean("flag"), true);
    EXPECT_EQ(reopened.integer("count"), 9'007'199'254'740'993);
    EXPECT_EQ(reopened.real("delay"), 1.0);
    EXPECT_FALSE(reopened.integer("delay").has_value());
    EXPECT_EQ(reopened.string("name"), "Vantrelle");
    EXPECT_EQ(reopened.stringArray("tabs"), (std::vector<std::string>{"calc", "dashboard"}));
    EXPECT_EQ(reopened.bytes("blob"), (Bytes{0, 1, 2, 250, 255}));
    EXPECT_EQ(reopened.bytes("empty"), Bytes{});
    EXPECT_EQ(reopened.realArray("instants"), (std::vector<double>{1.5, 1'800'000'000.25}));
    EXPECT_EQ(reopened.realArray("none"), std::vector<double>{})
        << "an empty array is an empty list of numbers";
    EXPECT_FALSE(reopened.realArray("tabs").has_value());
}

TEST(JsonDefaultsStore, WrongTypeOrAbsentKeyReadsAsNothing) {
    TempDir dir;
    JsonDefaultsStore store(dir / "d.json");
    store.set("flag", std::string("yes"));
    EXPECT_FALSE(store.boolean("flag").has_value());
    EXPECT_FALSE(store.boolean("missing").has_value());
    store.set("n", std::int64_t{3});
    EXPECT_EQ(store.real("n"), 3.0);  // an integer reads as a number
    EXPECT_FALSE(store.boolean("n").has_value());
}

TEST(JsonDefaultsStore, OddShapesInTheFileAreSkippedKeyByKey) {
    TempDir dir;
    dir.write(
        "d.json",
        R"({"ok": 1, "mixed": ["a", 2], "numbers": [1, "a"], "nested": {"x": 1}, "nothing": null, "b": {"base64": "!!"}})");
    JsonDefaultsStore store(dir / "d.json");
    EXPECT_EQ(store.integer("ok"), 1);
    EXPECT_FALSE(store.object("mixed").has_value());
    EXPECT_FALSE(store.object("numbers").has_value());
    EXPECT_FALSE(store.object("nested").has_value());
    EXPECT_FALSE(store.object("nothing").has_value());
    EXPECT_FALSE(store.object("b").has_value());
}

TEST(JsonDefaultsStore, OneTrailingCommaMovesTheFileAsideWholeBeforeTheNextSave) {
    TempDir dir;
    const std::string handEdited =
        "{\n  \"hoverDelay\": 0.5,\n  \"showDock\": false,\n  \"focusMinutes\": 50,\n  \"appearance\": "
        "\"dark\",\n}\n";
    dir.write("d.json", handEdited);
    VirtualScheduler clock{Date{1'800'000'000.0}};  // 2027-01-15T08:00:00Z
    LogCapture log;
    {
        JsonDefaultsStore store(dir / "d.json", clock);
        EXPECT_FALSE(store.object("hoverDelay").has_value()) << "an unreadable file starts from the defaults";
        store.set("playSounds", false);
    }
    EXPECT_EQ(dir.read("d.json.unreadable-20270115T080000Z"), handEdited);
    EXPECT_NE(log.text().find("defaults: moved unreadable " + (dir / "d.json").string()), std::string::npos)
        << log.text();
    JsonDefaultsStore reopened(dir / "d.json", clock);
    EXPECT_EQ(reopened.boolean("playSounds"), false);
    EXPECT_FALSE(reopened.object("showDock").has_value());
}

TEST(JsonDefaultsStore, UnusableFilesAreMovedAsideWithoutACrash) {
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"truncated by a crash elsewhere", "{\"hoverDelay\": 0.5,"},
        {"not an object", "[1, 2, 3]"},
        {"nested 100,000 deep", "{\"x\": " + std::string(100'000, '[') + std::string(100'000, ']') + "}"},
        {"binary", std::string("\0\xff\xfe{", 4)},
    };
    for (const auto& [name, contents] : cases) {
        TempDir dir;
        dir.write("d.json", contents);
        VirtualScheduler clock{Date{1'800'000'000.0}};
        JsonDefaultsStore store(dir / "d.json", clock);
        store.set("showDock", false);
        EXPECT_EQ(dir.read("d.json.unreadable-20270115T080000Z"), contents) << name;
        EXPECT_EQ(JsonDefaultsStore(dir / "d.json", clock).boolean("showDock"), false) << name;
    }
}

TEST(JsonDefaultsStore, ValuesOfOddShapesSurviveSavesUntilTheirKeyIsSetOrRemoved) {
    TempDir dir;
    dir.write("d.json", R"({"nested": {"x": [1, 2]}, "nothing": null, "mixed": ["a", 2], "ok": 1})");
    {
        JsonDefaultsStore store(dir / "d.json");
        store.set("showDock", false);
    }
    {
        JsonDefaultsStore store(dir / "d.json");
        EXPECT_EQ(store.integer("ok"), 1);
        EXPECT_EQ(store.boolean("showDock"), false);
        store.set("mixed", std::vector<std::string>{"a"});
        store.remove("nothing");
    }
    const std::string saved = dir.read("d.json");
    EXPECT_NE(saved.find("\"nested\": {\n    \"x\": [\n      1,\n      2\n    ]\n  }"), std::string::npos)
        << saved;
    EXPECT_EQ(saved.find("nothing"), std::string::npos) << saved;
    EXPECT_EQ(JsonDefaultsStore(dir / "d.json").stringArray("mixed"), std::vector<std::string>{"a"});
}

TEST(JsonDefaultsStore, WritesLeaveNoTemporaryFilesBehind) {
    TempDir dir;
    JsonDefaultsStore store(dir / "d.json");
    for (int i = 0; i < 5; ++i) store.set("i", std::int64_t{i});
    store.remove("i");
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{"d.json"});
    EXPECT_EQ(dir.read("d.json"), "{}\n");
}

TEST(JsonDefaultsStore, UnwritableLocationKeepsValuesInMemory) {
    TempDir dir;
    dir.write("blocker", "a file where a folder should be");
    JsonDefaultsStore store(dir / "blocker/d.json");
    store.set("flag", true);
    EXPECT_EQ(store.boolean("flag"), true);
}

}  // namespace
}  // namespace vantrelle
