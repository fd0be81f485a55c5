#include "core/library/LibraryFile.h"
#include "tests/core/library/SampleLibrary.h"
#include "tests/core/library/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace brinmoor {
namespace {

/// A process that saves the two libraries by turns until it is killed.
class SavingProcess {
public:
    SavingProcess(const LibraryFile& file, const Library& a, const Library& b) : id_(::fork()) {
        if (id_ != 0)
            return;
        for (;;)
            if (!file.save(a).ok() || !file.save(b).ok())
                ::_exit(1);
    }
    SavingProcess(const SavingProcess&) = delete;
    SavingProcess& operator=(const SavingProcess&) = delete;
    ~SavingProcess() { kill(); }

    /// Whether it was still at work.
    bool kill() {
        if (id_ <= 0)
            return false;
        ::kill(id_, SIGKILL);
        int status = 0;
        ::waitpid(id_, &status, 0);
        id_ = 0;
        return WIFSIGNALED(status);
    }

private:
    pid_t id_;
};

TEST(LibraryFileKilled, atAnyMomentLeavesTheOldOrTheNewFileWhole) {
    constexpr std::uint64_t seed = 41;
    const tests::TemporaryFolder folder;
    const LibraryFile file(folder / "library.json");
    const Library a = tests::randomLibrary(1, 300);
    const Library b = tests::randomLibrary(2, 700);
    ASSERT_TRUE(file.save(a).ok());
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(file.save(b).ok() && file.save(a).ok());
    const std::chrono::duration<double> both = std::chrono::steady_clock::now() - start;
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> moment(0, 2);
    int newOnes = 0;
    for (int round = 0; round < 300; ++round) {
        SavingProcess saving(file, a, b);
        std::this_thread::sleep_for(both * moment(random));
        ASSERT_TRUE(saving.kill());
        const auto loaded = file.load();
        ASSERT_TRUE(loaded.ok()) << "round " << round << " seed " << seed;
        ASSERT_TRUE(*loaded == a || *loaded == b) << "round " << round << " seed " << seed;
        newOnes += *loaded == b ? 1 : 0;
    }
    // Both outcomes were met, so the moments were spread over the whole of a save.
    EXPECT_GT(newOnes, 0);
    EXPECT_LT(newOnes, 300);
}

} // namespace
} // namespace brinmoor
