#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "ProcProcessTable.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

TEST(ProcProcessTable, ReadsProgramAndArgumentsAndSkipsWhatIsNotAProcess) {
    testing::TempDir dir;
    std::filesystem::create_directories(dir / "proc/101");
    std::filesystem::create_symlink("/usr/local/bin/node", dir / "proc/101/exe");
    dir.write("proc/101/cmdline", std::string("node\0/home/ada/.npm/bin/claude\0--resume\0", 40));
    std::filesystem::create_directories(dir / "proc/202");  // exe hidden from us: argv[0] stands in
    dir.write("proc/202/cmdline", std::string("codex\0exec\0", 11));
    std::filesystem::create_directories(dir / "proc/self");
    dir.write("proc/uptime", "1.0 2.0");

    ProcProcessTable table(dir / "proc");
    std::string error;
    auto list = table.list(error);
    ASSERT_TRUE(list) << error;
    std::map<pid_t, std::string> byPid;
    for (const auto& p : *list) byPid[p.pid] = p.executable + " | " + p.arguments;
    EXPECT_EQ(byPid, (std::map<pid_t, std::string>{
                         {101, "/usr/local/bin/node | node /home/ada/.npm/bin/claude --resume"},
                         {202, "codex | codex exec"}}));

    EXPECT_FALSE(ProcProcessTable(dir / "missing").list(error));
    EXPECT_FALSE(error.empty());
}

}  // namespace
}  // namespace vantrelle
