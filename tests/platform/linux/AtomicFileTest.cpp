#include "platform/linux/AtomicFile.h"

#include "tests/platform/linux/TestFolder.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace brinmoor;
using namespace brinmoor::testing;

namespace {

/// Runs `work` in a child that may write no file longer than `bytes`.
template <class Work>
int inChildWithFileLimit(rlim_t bytes, Work work) {
    const auto child = ::fork();
    if (child == 0) {
        const rlimit limit{bytes, bytes};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(work());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST(AtomicFile, contentsComeBackAsTheyWereWritten) {
    const TestFolder folder;
    const std::string contents("line\n\0byte", 10);
    ASSERT_TRUE(replaceFile(folder.path("a"), contents).ok());
    EXPECT_EQ(*readFile(folder.path("a"), 100), contents);
    EXPECT_EQ(filesIn(folder.path()), 1U);
}

TEST(AtomicFile, missingFoldersAreMadeForTheUserAlone) {
    const TestFolder folder;
    ASSERT_TRUE(replaceFile(folder.path("one/two/file"), "x").ok());
    struct stat made {};
    ASSERT_EQ(::stat(folder.path("one/two").c_str(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0700U);
    ASSERT_EQ(::stat(folder.path("one/two/file").c_str(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0600U);
}

TEST(AtomicFile, aSymbolicLinkSurvives) {
    const TestFolder folder;
    putFile(folder.path("elsewhere/file"), "old");
    std::filesystem::create_symlink(folder.path("elsewhere/file"), folder.path("link"));
    ASSERT_TRUE(replaceFile(folder.path("link"), "new").ok());
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
    EXPECT_EQ(contentsOf(folder.path("elsewhere/file")), "new");
}

TEST(AtomicFile, aWriteThatFailsHalfwayLeavesTheOldFileAndNothingElse) {
    const TestFolder folder;
    putFile(folder.path("file"), "old");
    const auto status = inChildWithFileLimit(1000, [&] {
        const auto outcome = replaceFile(folder.path("file"), std::string(5000, 'x'));
        return !outcome && outcome.error() == std::errc::file_too_large ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(contentsOf(folder.path("file")), "old");
    EXPECT_EQ(filesIn(folder.path()), 1U);
}

TEST(AtomicFile, aPathThroughAFileFails) {
    const TestFolder folder;
    putFile(folder.path("file"), "old");
    EXPECT_FALSE(replaceFile(folder.path("file/below"), "x").ok());
}

TEST(AtomicFile, aFolderInTheWayFailsAndStays) {
    const TestFolder folder;
    std::filesystem::create_directories(folder.path("file/inside"));
    EXPECT_FALSE(replaceFile(folder.path("file"), "x").ok());
    EXPECT_EQ(filesIn(folder.path()), 1U);
}

TEST(AtomicFile, readingSaysWhyThereIsNothing) {
    const TestFolder folder;
    EXPECT_EQ(readFile(folder.path("none"), 10).error(), std::errc::no_such_file_or_directory);
    putFile(folder.path("long"), std::string(11, 'x'));
    EXPECT_EQ(readFile(folder.path("long"), 10).error(), std::errc::file_too_large);
}
