#include <gtest/gtest.h>

#include <future>
#include <nlohmann/json.hpp>

#include "TestApplication.h"
#include "fakes/TempDir.h"
#include "instance/InstanceCommands.h"
#include "instance/LocalInstanceChannel.h"

namespace vantrelle::testing {
namespace {

using nlohmann::json;

using LocalInstanceChannelTest = EventLoopTest;

TEST_F(LocalInstanceChannelTest, TheLockHolderAnswersAlsoWhereADeadInstanceLeftItsSocket) {
    TempDir dir;
    int opened = 0;
    InstanceCommands commands;
    commands.add("open", [&](const json&) { return json{{"opened", ++opened}}; });
    EXPECT_EQ(LocalInstanceChannel::ask(dir.path(), InstanceCommands::request("open"), 300), std::nullopt)
        << "nobody listening";
    dir.write("instance.sock", "");  // a stale socket file, as a killed instance leaves it
    auto first = std::make_unique<LocalInstanceChannel>(dir.path());
    ASSERT_TRUE(first->tryLock());
    LocalInstanceChannel second(dir.path());
    EXPECT_FALSE(second.tryLock());
    ASSERT_TRUE(first->listen(commands));
    // Asked from another thread, as another process would, while this one runs the event loop.
    auto reply = std::async(std::launch::async, [&] {
        return LocalInstanceChannel::ask(dir.path(), InstanceCommands::request("open"));
    });
    ASSERT_TRUE(
        spinUntil([&] { return reply.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    EXPECT_EQ(reply.get(), R"({"ok":true,"opened":1})");
    first.reset();
    EXPECT_TRUE(second.tryLock()) << "the lock is free once the first instance has gone";
}

}  // namespace
}  // namespace vantrelle::testing
