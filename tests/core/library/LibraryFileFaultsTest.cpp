#include "core/library/LibraryStorage.h"
#include "tests/core/library/FaultyFileSystem.h"
#include "tests/core/library/SampleLibrary.h"
#include "tests/core/library/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>

#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brinmoor {
namespace {

using Call = tests::FaultyFileSystem::Call;
using ::testing::ElementsAre;
using tests::contentOf;

FileError systemError(int code) {
    return {FileError::Cause::system, code};
}

/// A folder with a library in it, and a file system that is about to fail.
class LibraryFileFaults : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(LibraryFile(path).save(old).ok());
        before = contentOf(path);
    }

    FileError failedSave() {
        const auto saved = storage::save(system, path, changed);
        return saved.ok() ? FileError{} : saved.error();
    }

    void expectOnlyTheOldFile() {
        EXPECT_EQ(contentOf(path), before);
        EXPECT_THAT(folder.names(), ElementsAre("library.json"));
    }

    tests::TemporaryFolder folder;
    std::string path = folder / "library.json";
    Library old = tests::randomLibrary(1, 40);
    Library changed = tests::randomLibrary(2, 4000); // several windows of the writer
    std::string before;
    tests::FaultyFileSystem system;
};

struct Step {
    Call call;
    int error;
    int nth;
};

class LibraryFileFaultAt : public LibraryFileFaults, public ::testing::WithParamInterface<Step> {};

TEST_P(LibraryFileFaultAt, keepsTheOldFileAndLeavesNothingBehind) {
    const Step& step = GetParam();
    system.fail(step.call, step.error, step.nth);
    EXPECT_EQ(failedSave(), systemError(step.error));
    expectOnlyTheOldFile();
}

TEST_P(LibraryFileFaultAt, withoutNamelessFilesDoesTheSame) {
    const Step& step = GetParam();
    system.fail(Call::openNameless, EOPNOTSUPP);
    system.fail(step.call, step.error, step.nth);
    EXPECT_EQ(failedSave(), systemError(step.error));
    expectOnlyTheOldFile();
}

INSTANTIATE_TEST_SUITE_P(EachStep, LibraryFileFaultAt,
                         ::testing::Values(Step{Call::open, EMFILE, 1},
                                           Step{Call::write, ENOSPC, 1},
                                           Step{Call::write, ENOSPC, 3}, Step{Call::write, EIO, 2},
                                           Step{Call::flush, EIO, 1}, Step{Call::flush, EDQUOT, 1},
                                           Step{Call::rename, EACCES, 1},
                                           Step{Call::makeFolder, EROFS, 1}));

TEST_F(LibraryFileFaults, noTemporaryFileCanBeOpened) {
    system.fail(Call::openNameless, EROFS);
    system.fail(Call::open, EROFS, 3); // behind the folder and the old file
    EXPECT_EQ(failedSave(), systemError(EROFS));
    expectOnlyTheOldFile();
}

TEST_F(LibraryFileFaults, aCloseThatReportsALostWriteIsAFailure) {
    system.failOnce(Call::close, EIO);
    EXPECT_EQ(failedSave(), systemError(EIO));
    expectOnlyTheOldFile();
}

TEST_F(LibraryFileFaults, aFolderThatCannotBeFlushedGetsTheOldContentBack) {
    system.fail(Call::flushFolder, EIO);
    EXPECT_EQ(failedSave(), systemError(EIO));
    expectOnlyTheOldFile();
}

TEST_F(LibraryFileFaults, aFirstSaveWhoseFolderCannotBeFlushedLeavesNoFile) {
    std::filesystem::remove(path);
    system.fail(Call::flushFolder, EIO);
    EXPECT_EQ(failedSave(), systemError(EIO));
    EXPECT_THAT(folder.names(), ElementsAre());
}

TEST_F(LibraryFileFaults, aFileSystemThatKnowsNoFlushOfFoldersIsFine) {
    system.fail(Call::flushFolder, EINVAL);
    ASSERT_TRUE(storage::save(system, path, changed).ok());
    EXPECT_EQ(*LibraryFile(path).load(), changed);
}

TEST_F(LibraryFileFaults, shortAndInterruptedWritesGoOn) {
    system.writeAtMost(1000);
    system.failOnce(Call::write, EINTR, 5);
    ASSERT_TRUE(storage::save(system, path, changed).ok());
    EXPECT_GT(system.calls(Call::write), 100);
    EXPECT_EQ(*LibraryFile(path).load(), changed);
}

TEST_F(LibraryFileFaults, aDeviceThatTakesNothingIsAFailure) {
    system.writeAtMost(0);
    EXPECT_EQ(failedSave(), systemError(EIO));
    expectOnlyTheOldFile();
}

TEST_F(LibraryFileFaults, aFileThatCannotBeNamedLaterIsNamedAtOnce) {
    system.fail(Call::link, ENOENT);
    ASSERT_TRUE(storage::save(system, path, changed).ok());
    EXPECT_EQ(*LibraryFile(path).load(), changed);
    EXPECT_THAT(folder.names(), ElementsAre("library.json"));
}

TEST_F(LibraryFileFaults, namesThatAreTakenArePassedOver) {
    system.failOnce(Call::link, EEXIST);
    ASSERT_TRUE(storage::save(system, path, changed).ok());
    system.fail(Call::openNameless, EOPNOTSUPP);
    system.failOnce(Call::open, EEXIST, system.calls(Call::open) + 3);
    ASSERT_TRUE(storage::save(system, path, old).ok());
    EXPECT_EQ(*LibraryFile(path).load(), old);
}

TEST_F(LibraryFileFaults, aFailedReadIsTheFailureOfLoad) {
    for (const auto& [call, error] :
         {std::pair{Call::open, EACCES}, {Call::status, EIO}, {Call::read, EIO}}) {
        tests::FaultyFileSystem failing;
        failing.fail(call, error);
        EXPECT_EQ(storage::load(failing, path).error(), systemError(error));
    }
    system.failOnce(Call::read, EINTR);
    EXPECT_TRUE(storage::load(system, path).ok());
}

/// Runs `body` in a process of its own; gives its exit status.
template <class Body>
int inChild(Body body) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(LibraryFileFaults, aLimitOfTheFilesSizeKeepsTheOldFile) {
    const int error = inChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{300'000, 300'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto saved = LibraryFile(path).save(changed);
        return saved.ok() ? 0 : static_cast<int>(saved.error().cause) + 1;
    });
    EXPECT_EQ(error, static_cast<int>(FileError::Cause::tooLarge) + 1);
    expectOnlyTheOldFile();
}

TEST_F(LibraryFileFaults, aFolderThatOthersMayNotWriteKeepsTheOldFile) {
    if (::geteuid() == 0)
        ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    else
        ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    const int error = inChild([&] {
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
            return -1;
        const auto saved = LibraryFile(path).save(changed);
        return saved.ok() ? 0 : saved.error().code;
    });
    ::chmod(folder.path().c_str(), 0700);
    EXPECT_EQ(error, EACCES);
    expectOnlyTheOldFile();
}

/// A disk of its own size. Mounting takes rights that not every machine gives to its tests; without
/// them the kernel's own small or closed places stand in.
class SmallDisk {
public:
    SmallDisk(std::string path, const char* options) : path_(std::move(path)) {
        std::filesystem::create_directories(path_);
        isMounted_ = ::mount("brinmoor-test", path_.c_str(), "tmpfs", 0, options) == 0;
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        if (isMounted_)
            ::umount(path_.c_str());
    }
    [[nodiscard]] bool isMounted() const { return isMounted_; }
    [[nodiscard]] bool makeReadOnly() const {
        return ::mount("", path_.c_str(), "", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

private:
    std::string path_;
    bool isMounted_ = false;
};

TEST_F(LibraryFileFaults, aFullDiskKeepsTheOldFile) {
    const SmallDisk disk(folder / "disk", "size=512k");
    const LibraryFile file(disk.isMounted() ? folder / "disk/library.json" : "/dev/full/library");
    if (disk.isMounted()) {
        ASSERT_TRUE(file.save(old).ok());
    }
    EXPECT_EQ(file.save(changed).error(), systemError(disk.isMounted() ? ENOSPC : ENOTDIR));
    if (disk.isMounted()) {
        EXPECT_EQ(*file.load(), old);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "disk"), {}), 1);
    }
}

TEST_F(LibraryFileFaults, aReadOnlyDiskKeepsTheOldFile) {
    const SmallDisk disk(folder / "disk", "size=4m");
    const LibraryFile file(disk.isMounted() ? folder / "disk/library.json" : "/proc/library.json");
    if (disk.isMounted()) {
        ASSERT_TRUE(file.save(old).ok());
        ASSERT_TRUE(disk.makeReadOnly());
    }
    EXPECT_FALSE(file.save(changed).ok());
    if (disk.isMounted()) {
        EXPECT_EQ(file.save(changed).error(), systemError(EROFS));
        EXPECT_EQ(*file.load(), old);
    }
}

} // namespace
} // namespace brinmoor
