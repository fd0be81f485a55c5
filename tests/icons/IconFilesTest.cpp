#include "icons/IconFiles.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>

namespace brinmoor {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

Instant present() {
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(since1970).count() - unixSecondsAtInstantZero};
}

void makeOlder(const fs::path& path, double seconds) {
    const auto age = std::chrono::duration_cast<fs::file_time_type::duration>(
        std::chrono::duration<double>(seconds));
    fs::last_write_time(path, fs::last_write_time(path) - age);
}

std::size_t fileCount(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

struct IconFilesTest : ::testing::Test {
    TemporaryFolder temporary;
    fs::path folder = temporary.path("a/b/SiteIcons");
    IconFiles files{folder.string()};
};

TEST_F(IconFilesTest, giveBackWhatTheyKept) {
    EXPECT_FALSE(files.read("key", present()).has_value());
    files.keep("key", "bytes");
    EXPECT_EQ(files.read("key", present()), QByteArray("bytes"));
    EXPECT_TRUE(fs::exists(folder / "key.png"));
    files.keep("key", "others");
    EXPECT_EQ(files.read("key", present()), QByteArray("others"));
    EXPECT_EQ(fileCount(folder), 1U);
}

TEST_F(IconFilesTest, ofSevenDaysCountNoMoreAndStayInPlace) {
    files.keep("key", "bytes");
    makeOlder(folder / "key.png", 604'800 - 60);
    EXPECT_TRUE(files.read("key", present()).has_value());
    makeOlder(folder / "key.png", 60);
    EXPECT_FALSE(files.read("key", present()).has_value());
    EXPECT_TRUE(fs::exists(folder / "key.png"));
}

TEST_F(IconFilesTest, ofMoreThanAMebibyteAreNotRead) {
    fs::create_directories(folder);
    testing::writeBytes(folder / "key.png", std::string(1'048'576, 'x'));
    EXPECT_EQ(files.read("key", present())->size(), 1'048'576);
    testing::writeBytes(folder / "key.png", std::string(1'048'577, 'x'));
    EXPECT_FALSE(files.read("key", present()).has_value());
}

TEST_F(IconFilesTest, beyond256LoseTheOldestAlone) {
    for (int number = 0; number < 256; ++number) {
        const std::string key = std::to_string(number);
        files.keep(key, "bytes");
        makeOlder(folder / (key + ".png"), number == 77 ? 5000 : 1000);
    }
    EXPECT_EQ(fileCount(folder), 256U);
    files.keep("new", "bytes");
    EXPECT_EQ(fileCount(folder), 256U);
    EXPECT_FALSE(fs::exists(folder / "77.png"));
    EXPECT_TRUE(fs::exists(folder / "new.png"));
}

TEST_F(IconFilesTest, thatCannotBeWrittenAreNotKept) {
    testing::writeBytes(temporary.path("a"), "a file where the folder should be");
    files.keep("key", "bytes");
    EXPECT_FALSE(files.read("key", present()).has_value());
}

} // namespace
} // namespace brinmoor
