#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "support/AtomicFile.h"
#include "support/StaleTemporaryFiles.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::LogCapture;
using testing::TempDir;

mode_t modeOf(const fs::path& path) {
    struct stat info {};
    EXPECT_EQ(::lstat(path.c_str(), &info), 0) << path;
    return info.st_mode & 07777;
}

TEST(AtomicFileKeeps, TheModeOfTheFileItReplacesAndTheUmaskForANewOne) {
    for (const mode_t mode : {0600, 0755, 0200}) {
        TempDir dir;
        const auto file = dir.write("settings.json", "old");
        ::chmod(file.c_str(), mode);
        ASSERT_TRUE(writeFileAtomically(file, "new")) << std::oct << mode;
        EXPECT_EQ(modeOf(file), mode) << std::oct << mode;
        ::chmod(file.c_str(), 0600);
        EXPECT_EQ(dir.read("settings.json"), "new") << std::oct << mode;
    }
    // Missing folders are made.
    TempDir dir;
    const mode_t previous = ::umask(077);
    const WriteResult written = writeFileAtomically(dir / "a/b/new.json", "{}");
    ::umask(previous);
    ASSERT_TRUE(written) << written.error();
    EXPECT_EQ(modeOf(dir / "a/b/new.json"), 0600u);
}

TEST(AtomicFileKeeps, ASymbolicLinkAndWritesItsTarget) {
    struct Case {
        const char* name;
        const char* target;  // as stored in the link home/settings.json
        const char* real;    // the file it reaches, below the folder
        bool exists;
    };
    const Case cases[] = {
        {"relative link", "dotfiles/settings.json", "home/dotfiles/settings.json", true},
        {"link into a parent folder", "../elsewhere/settings.json", "elsewhere/settings.json", true},
        {"dangling link creates its target", "dotfiles/not-yet.json", "home/dotfiles/not-yet.json", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TempDir dir;
        fs::create_directories(dir / "home/dotfiles");
        if (c.exists) dir.write(c.real, "old");
        fs::create_symlink(c.target, dir / "home/settings.json");

        const WriteResult written = writeFileAtomically(dir / "home/settings.json", "new");
        ASSERT_TRUE(written) << written.error();
        EXPECT_EQ(fs::read_symlink(dir / "home/settings.json"), c.target);
        EXPECT_EQ(dir.read(c.real), "new");
        EXPECT_EQ(testing::fileNamesIn((dir / c.real).parent_path()).size(), 1u)
            << "no temporary file is left";
    }
}

TEST(AtomicFileRefuses, AFileTheUserMadeReadOnlyAndNamesALinksTargetToo) {
    TempDir dir;
    const auto file = dir.write("settings.json", "{\"keep\": true}");
    ::chmod(file.c_str(), 0444);
    fs::create_symlink(file, dir / "link.json");
    EXPECT_EQ(writeFileAtomically(dir / "link.json", "{}").error(),
              "Couldn't write " + (dir / "link.json").string() + " (a link to " + file.string() +
                  "): the file is read-only (Permission denied)");
    EXPECT_EQ(dir.read("settings.json"), "{\"keep\": true}");
    EXPECT_EQ(modeOf(file), 0444u);
    EXPECT_EQ(testing::fileNamesIn(dir.path()), (std::vector<std::string>{"link.json", "settings.json"}));
}

TEST(AtomicFileRefuses, PathsThatCannotHoldAFileWithTheSystemsReason) {
    TempDir dir;
    fs::create_directories(dir / "defaults.json");
    ::mkfifo((dir / "pipe.json").c_str(), 0600);  // no writer: a blocking open would wait forever
    fs::create_symlink("loop.json", dir / "loop.json");
    dir.write("config", "a file where a folder should be");
    const struct {
        std::string path;
        std::string reason;
    } rows[] = {
        {"defaults.json", "it is a folder, not a file (Is a directory)"},
        {"pipe.json", "it is a named pipe, not a regular file"},
        {"loop.json", "Too many levels of symbolic links"},
        {"config/Vantrelle/defaults.json", "Not a directory"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.reason);
        const WriteResult written = writeFileAtomically(dir / row.path, "{}");
        EXPECT_NE(written.error().find(row.reason), std::string::npos) << written.error();
    }
    EXPECT_EQ(dir.read("config"), "a file where a folder should be");
}

// Forks a writer that is SIGKILLed in the middle of writing `size` bytes: the file size limit stops its
// write part way and the signal that brings is turned into SIGKILL, so no clean-up code of ours runs.
void writeAndGetKilled(const fs::path& file, std::size_t size) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, [](int) { ::kill(::getpid(), SIGKILL); });
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        (void)writeFileAtomically(file, std::string(size, 'x'));
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the writer finished: " << status;
}

TEST(StaleTemporaryFiles, AKilledWritersFileIsGoneAfterTheNextSweepAndTheTargetIsWhole) {
    TempDir dir;
    const auto file = dir.write("defaults.json", "{\"old\": true}");
    writeAndGetKilled(file, 1 << 20);
    const auto left = testing::fileNamesIn(dir.path());
    ASSERT_EQ(left.size(), 2u) << "the killed writer leaves its temporary file";
    EXPECT_EQ(dir.read("defaults.json"), "{\"old\": true}");

    LogCapture log;
    EXPECT_EQ(removeStaleTemporaryFiles(dir.path()), std::vector<fs::path>{dir / left[0]});
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{"defaults.json"});
    EXPECT_NE(log.text().find((dir / left[0]).string()), std::string::npos) << log.text();
}

TEST(StaleTemporaryFiles, OnlyOursAndOnlyAbandonedOnesAreRemoved) {
    TempDir dir;
    const std::string abandoned = temporaryFilePrefix(dir / "defaults.json") + "Ab3dE9";
    const std::string live = temporaryFilePrefix(dir / "wrapped-history.json") + "Zz9Yy8";
    dir.write(abandoned, "half");
    dir.write(live, "being written");
    std::vector<std::string> kept = {
        ".defaults.json.vantrelle-tmp-short",  // not our suffix
        "defaults.json.backup",                // a person's name for a copy
        "notes.json.Q7x2Lm",                   // a legacy shape, but not a file we listed
        "defaults.json",
    };
    for (const auto& name : kept) dir.write(name, "keep");
    dir.write("defaults.json.k3JqW0", "legacy leftover");

    // A live writer holds its file locked.
    const int writer = ::open((dir / live).c_str(), O_RDWR);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    removeStaleTemporaryFiles(dir.path(), {"defaults.json", "wrapped-history.json"});
    ::close(writer);
    kept.push_back(live);
    std::sort(kept.begin(), kept.end());
    EXPECT_EQ(testing::fileNamesIn(dir.path()), kept);
}

}  // namespace
}  // namespace vantrelle
