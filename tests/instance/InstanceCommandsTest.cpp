#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "instance/InstanceCommands.h"

namespace vantrelle {
namespace {

using nlohmann::json;

class InstanceCommandsTest : public ::testing::Test {
protected:
    void SetUp() override {
        commands.add("open", [this](const json& request) {
            ++opened;
            lastRequest = request;
            return json::object();
        });
        commands.add("version", [](const json&) { return json{{"version", "1.2.3"}}; });
        commands.add("fail", [](const json&) { return json{{"error", "cannot do that now"}}; });
        commands.add("odd", [](const json&) { return json::array({1, 2}); });
    }

    InstanceCommands commands;
    int opened = 0;
    json lastRequest;
};

TEST_F(InstanceCommandsTest, EachLineGetsOneReplyLine) {
    struct Case {
        const char* name;
        std::string line;
        json expected;
    };
    const std::vector<Case> cases{
        {"a reply with fields", R"({"command":"version"})", {{"ok", true}, {"version", "1.2.3"}}},
        {"a handler that fails", R"({"command":"fail"})", {{"ok", false}, {"error", "cannot do that now"}}},
        {"a handler returning no object", R"({"command":"odd"})", {{"ok", true}}},
        {"an unknown command",
         R"({"command":"dance"})",
         {{"ok", false}, {"error", "unknown command: dance"}}},
        {"no command", R"({"page":"general"})", {{"ok", false}, {"error", "no command"}}},
        {"a command that is no string", R"({"command":7})", {{"ok", false}, {"error", "no command"}}},
        {"not JSON", "open please", {{"ok", false}, {"error", "not a JSON object"}}},
        {"JSON but no object", R"(["open"])", {{"ok", false}, {"error", "not a JSON object"}}},
        {"too long",
         std::string(InstanceCommands::kMaxLineBytes + 1, ' '),
         {{"ok", false}, {"error", "request too long"}}},
    };
    for (const auto& c : cases) {
        const std::string reply = commands.answer(c.line);
        EXPECT_EQ(reply.find('\n'), std::string::npos) << c.name;
        EXPECT_EQ(json::parse(reply), c.expected) << c.name << ": " << reply;
    }
}

TEST_F(InstanceCommandsTest, ARequestIsOneLineAndItsHandlerSeesTheArguments) {
    const std::string line = InstanceCommands::request("open", json{{"note", "two\nlines \xff"}});
    EXPECT_EQ(line.find('\n'), std::string::npos);
    (void)commands.answer(line);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(lastRequest, (json{{"command", "open"}, {"note", "two\nlines \xef\xbf\xbd"}}));
    EXPECT_EQ(InstanceCommands::request("quit"), R"({"command":"quit"})");
}

}  // namespace
}  // namespace vantrelle
