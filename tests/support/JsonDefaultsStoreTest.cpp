#include <gtest/gtest.h>

#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
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
        store.set("name", std::string("Vantrelle"));
        store.set("count", std::int64_t{9'007'199'254'740'993});  // beyond double precision
        store.set("delay", 1.0);                                  // a whole double stays a double
        store.set("tabs", std::vector<std::string>{"calc", "dashboard"});
        store.set("blob", Bytes{0, 1, 2, 250, 255});
        store.set("instants", std::vector<double>{1.5, 1'800'000'000.25});
        store.set("none", std::vector<double>{});
    }
    JsonDefaultsStore reopened(file);
    EXPECT_EQ(reopened.boolean("flag"), true);
    EXPECT_EQ(reopened.string("name"), "Vantrelle");
    EXPECT_EQ(reopened.integer("count"), 9'007'199'254'740'993);
    EXPECT_EQ(reopened.real("delay"), 1.0);
    EXPECT_FALSE(reopened.integer("delay").has_value());
    EXPECT_EQ(reopened.stringArray("tabs"), (std::vector<std::string>{"calc", "dashboard"}));
    EXPECT_EQ(reopened.bytes("blob"), (Bytes{0, 1, 2, 250, 255}));
    EXPECT_EQ(reopened.realArray("instants"), (std::vector<double>{1.5, 1'800'000'000.25}));
    EXPECT_EQ(reopened.realArray("none"), std::vector<double>{})
        << "an empty array is an empty list of numbers";
    EXPECT_FALSE(reopened.realArray("tabs").has_value()) << "a wrong type reads as nothing";
    EXPECT_EQ(reopened.real("count"), 9'007'199'254'740'993.0) << "an integer reads as a number";
}

TEST(JsonDefaultsStore, UnusableFilesAreMovedAsideWholeBeforeTheNextSave) {
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"one trailing comma", "{\n  \"hoverDelay\": 0.5,\n  \"showDock\": true,\n}\n"},
        {"not an object", "[1, 2, 3]"},
        {"nested 100,000 deep", "{\"x\": " + std::string(100'000, '[') + std::string(100'000, ']') + "}"},
    };
    for (const auto& [name, contents] : cases) {
        SCOPED_TRACE(name);
        TempDir dir;
        dir.write("d.json", contents);
        VirtualScheduler clock{Date{1'800'000'000.0}};  // 2027-01-15T08:00:00Z
        {
            JsonDefaultsStore store(dir / "d.json", clock);
            EXPECT_FALSE(store.object("hoverDelay").has_value())
                << "an unreadable file starts from the defaults";
            store.set("showDock", false);
        }
        EXPECT_EQ(dir.read("d.json.unreadable-20270115T080000Z"), contents);
        EXPECT_EQ(JsonDefaultsStore(dir / "d.json", clock).boolean("showDock"), false);
    }
}

TEST(JsonDefaultsStore, ValuesOfOddShapesReadAsNothingAndSurviveSavesUntilTheirKeyIsSetOrRemoved) {
    TempDir dir;
    dir.write("d.json", R"({"nested": {"x": [1, 2]}, "nothing": null, "mixed": ["a", 2], "ok": 1})");
    {
        JsonDefaultsStore store(dir / "d.json");
        for (const char* key : {"nested", "nothing", "mixed"}) EXPECT_FALSE(store.object(key)) << key;
        EXPECT_EQ(store.integer("ok"), 1) << "odd shapes are skipped key by key";
        store.set("mixed", std::vector<std::string>{"a"});
        store.remove("nothing");
    }
    const std::string saved = dir.read("d.json");
    EXPECT_NE(saved.find("\"nested\": {\n    \"x\": [\n      1,\n      2\n    ]\n  }"), std::string::npos)
        << saved;
    EXPECT_EQ(saved.find("nothing"), std::string::npos) << saved;
    EXPECT_EQ(JsonDefaultsStore(dir / "d.json").stringArray("mixed"), std::vector<std::string>{"a"});
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
