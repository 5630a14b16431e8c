#include <gtest/gtest.h>

#include <QLocalSocket>
#include <future>
#include <nlohmann/json.hpp>

#include "TestApplication.h"
#include "fakes/TempDir.h"
#include "instance/InstanceCommands.h"
#include "instance/LocalInstanceChannel.h"

namespace vantrelle::testing {
namespace {

using nlohmann::json;

class LocalInstanceChannelTest : public EventLoopTest {
protected:
    void SetUp() override {
        commands.add("open", [this](const json&) {
            ++opened;
            return json::object();
        });
    }

    // Asks from another thread, as another process would, while this one runs the event loop.
    std::optional<std::string> askTurningTheLoop(const std::string& line) {
        auto reply =
            std::async(std::launch::async, [&] { return LocalInstanceChannel::ask(dir.path(), line); });
        EXPECT_TRUE(
            spinUntil([&] { return reply.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        return reply.get();
    }

    TempDir dir;
    InstanceCommands commands;
    int opened = 0;
};

TEST_F(LocalInstanceChannelTest, TheFirstHoldsTheLockAndASecondIsRefusedUntilItGoes) {
    auto first = std::make_unique<LocalInstanceChannel>(dir.path());
    ASSERT_TRUE(first->tryLock());
    LocalInstanceChannel second(dir.path());
    EXPECT_FALSE(second.tryLock());
    first.reset();
    EXPECT_TRUE(second.tryLock()) << "the lock is free once the first instance has gone";
}

TEST_F(LocalInstanceChannelTest, ARequestGetsItsReplyLineAlsoWhereADeadInstanceLeftItsSocket) {
    dir.write("instance.sock", "");  // a stale socket file, as a killed instance leaves it
    LocalInstanceChannel channel(dir.path());
    ASSERT_TRUE(channel.tryLock());
    ASSERT_TRUE(channel.listen(commands));

    const auto reply = askTurningTheLoop(InstanceCommands::request("open"));
    ASSERT_TRUE(reply.has_value());
    EXPECT_EQ(json::parse(*reply), (json{{"ok", true}}));
    EXPECT_EQ(opened, 1);
}

TEST_F(LocalInstanceChannelTest, SeveralLinesOnOneConnectionAreAnsweredInOrder) {
    LocalInstanceChannel channel(dir.path());
    ASSERT_TRUE(channel.tryLock());
    ASSERT_TRUE(channel.listen(commands));
    auto replies = std::async(std::launch::async, [&] {
        QLocalSocket socket;
        socket.connectToServer(QString::fromStdString(channel.socketPath().string()));
        if (!socket.waitForConnected(2000)) return std::vector<std::string>{};
        socket.write("{\"command\":\"open\"}\n{\"command\":\"nope\"}\n");
        socket.waitForBytesWritten(2000);
        std::vector<std::string> lines;
        while (lines.size() < 2 && (socket.canReadLine() || socket.waitForReadyRead(2000))) {
            while (socket.canReadLine()) lines.push_back(socket.readLine().trimmed().toStdString());
        }
        return lines;
    });
    ASSERT_TRUE(
        spinUntil([&] { return replies.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    EXPECT_EQ(replies.get(), (std::vector<std::string>{R"({"ok":true})",
                                                       R"({"error":"unknown command: nope","ok":false})"}));
}

TEST_F(LocalInstanceChannelTest, NobodyListeningGivesNoReply) {
    EXPECT_EQ(LocalInstanceChannel::ask(dir.path(), InstanceCommands::request("open"), 300), std::nullopt);
}

TEST_F(LocalInstanceChannelTest, TheFolderComesFromTheRuntimeDirectoryWhenTheSessionHasOne) {
    AppPaths paths;
    paths.cacheHome = "/home/u/.cache";
    EXPECT_EQ(
        LocalInstanceChannel::defaultFolder(MapEnvironment{{{"XDG_RUNTIME_DIR", "/run/user/1000"}}}, paths),
        "/run/user/1000/vantrelle");
    EXPECT_EQ(LocalInstanceChannel::defaultFolder(MapEnvironment{{{"XDG_RUNTIME_DIR", "relative"}}}, paths),
              "/home/u/.cache/Vantrelle");
    EXPECT_EQ(LocalInstanceChannel::defaultFolder(MapEnvironment{}, paths), "/home/u/.cache/Vantrelle");
}

}  // namespace
}  // namespace vantrelle::testing
