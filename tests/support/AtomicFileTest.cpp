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

// ---- What is kept of the replaced file -------------------------------------------------------------

TEST(AtomicFileKeeps, TheModeOfTheFileItReplaces) {
    for (const mode_t mode : {0600, 0640, 0644, 0660, 0755, 0200}) {
        TempDir dir;
        const auto file = dir.write("settings.json", "old");
        ::chmod(file.c_str(), mode);
        ASSERT_TRUE(writeFileAtomically(file, "new")) << std::oct << mode;
        EXPECT_EQ(modeOf(file), mode) << std::oct << mode;
        ::chmod(file.c_str(), 0600);
        EXPECT_EQ(dir.read("settings.json"), "new") << std::oct << mode;
    }
}

TEST(AtomicFileKeeps, TheUmaskForANewFile) {
    TempDir dir;
    const mode_t previous = ::umask(077);
    const WriteResult written = writeFileAtomically(dir / "a/b/new.json", "{}");
    ::umask(022);
    const WriteResult public_ = writeFileAtomically(dir / "public.json", "{}");
    ::umask(previous);
    ASSERT_TRUE(written) << written.error();
    ASSERT_TRUE(public_) << public_.error();
    EXPECT_EQ(modeOf(dir / "a/b/new.json"), 0600u) << "missing folders are made and the umask is honoured";
    EXPECT_EQ(modeOf(dir / "public.json"), 0644u);
}

TEST(AtomicFileKeeps, TheOwnerOfTheFileItReplaces) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can give a file to someone else";
    TempDir dir;
    const auto file = dir.write("owned.json", "old");
    ASSERT_EQ(::chown(file.c_str(), 65534, 65534), 0);
    ::chmod(file.c_str(), 0640);
    ASSERT_TRUE(writeFileAtomically(file, "new"));
    struct stat info {};
    ASSERT_EQ(::stat(file.c_str(), &info), 0);
    EXPECT_EQ(info.st_uid, 65534u);
    EXPECT_EQ(info.st_gid, 65534u);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST(AtomicFileKeeps, ASymbolicLinkAndWritesItsTarget) {
    struct Case {
        const char* name;
        const char* linkTarget;  // as stored in the link
        const char* realFile;    // relative to the folder
    };
    const Case cases[] = {
        {"relative link", "dotfiles/settings.json", "dotfiles/settings.json"},
        {"link into a parent folder", "../elsewhere/settings.json", "elsewhere/settings.json"},
        {"dangling link creates its target", "dotfiles/not-yet.json", "dotfiles/not-yet.json"},
    };
    for (const Case& c : cases) {
        TempDir dir;
        fs::create_directories(dir / "home/dotfiles");
        fs::create_directories(dir / "elsewhere");
        const bool dangling = std::string_view(c.name).find("dangling") != std::string_view::npos;
        const fs::path real = c.linkTarget[0] == '.' ? dir / c.realFile : dir / "home" / c.realFile;
        if (!dangling) {
            dir.write(fs::relative(real, dir.path()).string(), "old");
            ::chmod(real.c_str(), 0600);
        }
        const auto link = dir / "home/settings.json";
        fs::create_symlink(c.linkTarget, link);

        const WriteResult written = writeFileAtomically(link, "new");
        ASSERT_TRUE(written) << c.name << ": " << written.error();
        EXPECT_TRUE(fs::is_symlink(link)) << c.name;
        EXPECT_EQ(fs::read_symlink(link), c.linkTarget) << c.name;
        EXPECT_EQ(readWholeFile(real), "new") << c.name;
        EXPECT_EQ(testing::fileNamesIn(real.parent_path()).size(), 1u)
            << c.name << ": no temporary file is left";
    }
}

TEST(AtomicFileKeeps, AChainOfLinksAndAnAbsoluteLink) {
    TempDir dir;
    const auto real = dir.write("real/settings.json", "old");
    ::chmod(real.c_str(), 0600);
    fs::create_symlink(real, dir / "first");
    fs::create_symlink("first", dir / "second");
    ASSERT_TRUE(writeFileAtomically(dir / "second", "new"));
    EXPECT_TRUE(fs::is_symlink(dir / "first"));
    EXPECT_TRUE(fs::is_symlink(dir / "second"));
    EXPECT_EQ(dir.read("real/settings.json"), "new");
    EXPECT_EQ(modeOf(real), 0600u);
}

// ---- What is refused, and what the refusal says ----------------------------------------------------

TEST(AtomicFileRefuses, AFileTheUserMadeReadOnly) {
    TempDir dir;
    const auto file = dir.write("settings.json", "{\"keep\": true}");
    ::chmod(file.c_str(), 0444);
    const WriteResult written = writeFileAtomically(file, "{}");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(),
              "Couldn't write " + file.string() + ": the file is read-only (Permission denied)");
    EXPECT_EQ(dir.read("settings.json"), "{\"keep\": true}");
    EXPECT_EQ(modeOf(file), 0444u);
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{"settings.json"});
}

TEST(AtomicFileRefuses, AReadOnlyLinkTargetAndNamesBoth) {
    TempDir dir;
    const auto real = dir.write("real.json", "old");
    ::chmod(real.c_str(), 0400);
    fs::create_symlink(real, dir / "link.json");
    const WriteResult written = writeFileAtomically(dir / "link.json", "new");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(), "Couldn't write " + (dir / "link.json").string() + " (a link to " +
                                   real.string() + "): the file is read-only (Permission denied)");
    EXPECT_EQ(dir.read("real.json"), "old");
}

TEST(AtomicFileRefuses, PathsThatCannotHoldAFileWithTheSystemsReason) {
    struct Case {
        const char* name;
        std::function<fs::path(TempDir&)> make;
        std::string reason;
    };
    const std::vector<Case> cases = {
        {"a folder where the file should be",
         [](TempDir& d) {
             fs::create_directories(d / "defaults.json");
             return d / "defaults.json";
         },
         "it is a folder, not a file (Is a directory)"},
        {"a named pipe",
         [](TempDir& d) {
             ::mkfifo((d / "pipe.json").c_str(), 0600);
             return d / "pipe.json";
         },
         "it is a named pipe, not a regular file"},
        {"a link that points at itself",
         [](TempDir& d) {
             fs::create_symlink("loop.json", d / "loop.json");
             return d / "loop.json";
         },
         "Too many levels of symbolic links"},
        {"a name too long for the file system", [](TempDir& d) { return d / std::string(300, 'n'); },
         "File name too long"},
    };
    for (const Case& c : cases) {
        TempDir dir;
        const fs::path path = c.make(dir);
        const WriteResult written = writeFileAtomically(path, "{}");
        ASSERT_FALSE(written) << c.name;
        EXPECT_NE(written.error().find(path.string()), std::string::npos)
            << c.name << ": " << written.error();
        EXPECT_NE(written.error().find(c.reason), std::string::npos) << c.name << ": " << written.error();
    }
}

TEST(AtomicFileRefuses, AFolderThatIsAFileAndSaysWhichFolder) {
    TempDir dir;
    dir.write("config", "a file where a folder should be");
    const WriteResult written = writeFileAtomically(dir / "config/Vantrelle/defaults.json", "{}");
    ASSERT_FALSE(written);
    EXPECT_NE(written.error().find((dir / "config/Vantrelle").string()), std::string::npos)
        << written.error();
    EXPECT_NE(written.error().find("Not a directory"), std::string::npos) << written.error();
    EXPECT_EQ(dir.read("config"), "a file where a folder should be");
}

// ---- Reading ---------------------------------------------------------------------------------------

TEST(ReadRegularFile, TellsMissingFromUnreadableAndNeverBlocksOnAPipe) {
    TempDir dir;
    dir.write("ok.json", "{}");
    fs::create_directories(dir / "folder.json");
    ::mkfifo((dir / "pipe.json").c_str(), 0600);  // no writer: a blocking open would wait forever

    EXPECT_EQ(readRegularFile(dir / "ok.json").contents, "{}");
    EXPECT_EQ(readRegularFile(dir / "missing.json").status, ReadResult::Status::missing);
    const ReadResult folder = readRegularFile(dir / "folder.json");
    EXPECT_EQ(folder.status, ReadResult::Status::failed);
    EXPECT_EQ(folder.error, "Couldn't read " + (dir / "folder.json").string() +
                                ": it is a folder, not a file (Is a directory)");
    const ReadResult pipe = readRegularFile(dir / "pipe.json");
    EXPECT_EQ(pipe.status, ReadResult::Status::failed);
    EXPECT_NE(pipe.error.find("named pipe"), std::string::npos) << pipe.error;
    EXPECT_FALSE(readWholeFile(dir / "pipe.json").has_value());
}

// ---- Leftovers of a writer that was killed ---------------------------------------------------------

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
    EXPECT_TRUE(isTemporaryFileName(left[0])) << left[0];
    EXPECT_EQ(dir.read("defaults.json"), "{\"old\": true}");

    LogCapture log;
    const auto removed = removeStaleTemporaryFiles(dir.path());
    EXPECT_EQ(removed, std::vector<fs::path>{dir / left[0]});
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{"defaults.json"});
    EXPECT_NE(log.text().find("files: removed " + (dir / left[0]).string()), std::string::npos) << log.text();
}

TEST(StaleTemporaryFiles, OnlyOursAndOnlyAbandonedOnesAreRemoved) {
    TempDir dir;
    const std::string abandoned = temporaryFilePrefix(dir / "defaults.json") + "Ab3dE9";
    const std::string live = temporaryFilePrefix(dir / "wrapped-history.json") + "Zz9Yy8";
    dir.write(abandoned, "half");
    dir.write(live, "being written");
    const std::vector<std::string> kept = {
        ".defaults.json.vantrelle-tmp-short",  // not our suffix
        "defaults.json.backup",                // a person's name for a copy
        "defaults.json.unreadable-20260307T101500Z",
        "notes.json.Q7x2Lm",  // a legacy shape, but not a file we listed
        "defaults.json",
    };
    for (const auto& name : kept) dir.write(name, "keep");
    dir.write("defaults.json.k3JqW0", "legacy leftover");
    fs::create_directories(dir / (temporaryFilePrefix(dir / "folder") + "Qq1Qq1"));

    // A live writer holds its file locked.
    const int writer = ::open((dir / live).c_str(), O_RDWR);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    auto removed = removeStaleTemporaryFiles(dir.path(), {"defaults.json", "wrapped-history.json"});
    ::close(writer);
    std::sort(removed.begin(), removed.end());

    EXPECT_EQ(removed, (std::vector<fs::path>{dir / abandoned, dir / "defaults.json.k3JqW0"}));
    for (const auto& name : kept) EXPECT_TRUE(fs::exists(dir / name)) << name;
    EXPECT_TRUE(fs::exists(dir / live)) << "a live writer's file stays";
    EXPECT_TRUE(fs::is_directory(dir / (temporaryFilePrefix(dir / "folder") + "Qq1Qq1")));
}

TEST(StaleTemporaryFiles, AMissingFolderIsNoWork) {
    TempDir dir;
    EXPECT_TRUE(removeStaleTemporaryFiles(dir / "never-made").empty());
}

TEST(AtomicFile, ASuccessfulWriteLeavesOnlyTheFile) {
    TempDir dir;
    for (int i = 0; i < 20; ++i) ASSERT_TRUE(writeFileAtomically(dir / "d.json", std::to_string(i)));
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{"d.json"});
    EXPECT_EQ(dir.read("d.json"), "19");
    EXPECT_TRUE(writeFileAtomically(dir / "d.json", "").ok()) << "an empty file is a file too";
    EXPECT_EQ(dir.read("d.json"), "");
}

}  // namespace
}  // namespace vantrelle
