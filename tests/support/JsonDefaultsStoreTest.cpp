#include <gtest/gtest.h>

#include "fakes/TempDir.h"
#include "support/JsonDefaultsStore.h"

namespace vantrelle {
namespace {

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
    dir.write("d.json",
              R"({"ok": 1, "mixed": ["a", 2], "nested": {"x": 1}, "nothing": null, "b": {"base64": "!!"}})");
    JsonDefaultsStore store(dir / "d.json");
    EXPECT_EQ(store.integer("ok"), 1);
    EXPECT_FALSE(store.object("mixed").has_value());
    EXPECT_FALSE(store.object("nested").has_value());
    EXPECT_FALSE(store.object("nothing").has_value());
    EXPECT_FALSE(store.object("b").has_value());
}

TEST(JsonDefaultsStore, CorruptFileLoadsEmptyAndIsKeptUntilTheNextWrite) {
    TempDir dir;
    const std::string corrupt = "{\"hoverDelay\": 0.5,";  // truncated by a crash mid-write elsewhere
    dir.write("d.json", corrupt);
    {
        JsonDefaultsStore store(dir / "d.json");
        EXPECT_FALSE(store.object("hoverDelay").has_value());
    }
    EXPECT_EQ(dir.read("d.json"), corrupt);

    JsonDefaultsStore store(dir / "d.json");
    store.set("showDock", false);
    JsonDefaultsStore reopened(dir / "d.json");
    EXPECT_EQ(reopened.boolean("showDock"), false);
}

TEST(JsonDefaultsStore, WritesLeaveNoTemporaryFilesBehind) {
    TempDir dir;
    JsonDefaultsStore store(dir / "d.json");
    for (int i = 0; i < 5; ++i) store.set("i", std::int64_t{i});
    store.remove("i");
    int files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(dir.path())) ++files;
    EXPECT_EQ(files, 1);
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
