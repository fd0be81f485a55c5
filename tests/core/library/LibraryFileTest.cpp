#include "core/library/LibraryFile.h"
#include "tests/core/library/SampleLibrary.h"
#include "tests/core/library/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <limits>

#include <sys/stat.h>

namespace brinmoor {
namespace {

using Cause = FileError::Cause;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::contentOf;
using tests::TemporaryFolder;
using tests::writeFile;

FileError systemError(int code) {
    return {Cause::system, code};
}

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 0777;
}

TEST(LibraryFile, withoutAFileGivesTheNewDocumentAndMakesNothing) {
    const TemporaryFolder folder;
    const LibraryFile file(folder / "Brinmoor/library.json");
    const auto loaded = file.load();
    ASSERT_TRUE(loaded.ok());
    EXPECT_EQ(*loaded, Library());
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(LibraryFile, readsBackWhatItSaved) {
    const TemporaryFolder folder;
    const LibraryFile file(folder / "library.json");
    for (std::uint64_t seed = 1; seed <= 5; ++seed) {
        const Library library = tests::randomLibrary(seed, 500);
        ASSERT_TRUE(file.save(library).ok());
        ASSERT_EQ(*file.load(), library) << "seed " << seed;
    }
    EXPECT_THAT(folder.names(), ElementsAre("library.json"));
}

TEST(LibraryFile, savesTheEncodedDocument) {
    const TemporaryFolder folder;
    const Library library = tests::randomLibrary(3, 3000);
    ASSERT_TRUE(LibraryFile(folder / "library.json").save(library).ok());
    EXPECT_EQ(contentOf(folder / "library.json"), encodeLibrary(library));
}

TEST(LibraryFile, makesMissingFoldersForTheUserAlone) {
    const TemporaryFolder folder;
    ASSERT_TRUE(LibraryFile(folder / "a/b/c/library.json").save(Library()).ok());
    EXPECT_EQ(modeOf(folder / "a"), 0700U);
    EXPECT_EQ(modeOf(folder / "a/b/c"), 0700U);
    EXPECT_EQ(modeOf(folder / "a/b/c/library.json"), 0600U);
}

TEST(LibraryFile, writesThroughASymbolicLinkThatStays) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "synced");
    std::filesystem::create_symlink("synced/real.json", folder / "middle.json");
    std::filesystem::create_symlink("middle.json", folder / "library.json");
    const LibraryFile file(folder / "library.json");
    const Library library = tests::randomLibrary(1, 2);
    ASSERT_TRUE(file.save(library).ok()); // the link leads to no file yet
    ASSERT_TRUE(file.save(library).ok());
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "library.json"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "middle.json"));
    EXPECT_EQ(contentOf(folder / "synced/real.json"), encodeLibrary(library));
    EXPECT_EQ(*file.load(), library);
}

TEST(LibraryFile, behindACircleOfLinksIsAFailure) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("b", folder / "a");
    std::filesystem::create_symlink("a", folder / "b");
    EXPECT_EQ(LibraryFile(folder / "a").save(Library()).error(), systemError(ELOOP));
    EXPECT_EQ(LibraryFile(folder / "a").load().error(), systemError(ELOOP));
}

TEST(LibraryFile, thatIsEmptyFailsToLoad) {
    const TemporaryFolder folder;
    writeFile(folder / "library.json", "");
    EXPECT_EQ(LibraryFile(folder / "library.json").load().error().cause, Cause::notJson);
}

TEST(LibraryFile, ofAnotherVersionFailsToLoadAndStaysByteForByte) {
    const TemporaryFolder folder;
    for (const char* version : {"2", "0"}) {
        const std::string content =
            std::string(R"({"collections":[],"links":[],"version":)") + version + "}\n";
        writeFile(folder / "library.json", content);
        EXPECT_EQ(LibraryFile(folder / "library.json").load().error().cause, Cause::unknownVersion);
        EXPECT_EQ(contentOf(folder / "library.json"), content);
    }
}

TEST(LibraryFile, ofTenThousandLinksIsRefusedForOneUnknownImportance) {
    const TemporaryFolder folder;
    Library library = tests::randomLibrary(9, 10'000);
    for (SavedLink& link : library.links)
        link.importance.reset();
    library.links[7777].importance = LinkImportance::notNeeded;
    std::string content = encodeLibrary(library);
    const std::string value = R"("importance" : "notNeeded")";
    content.replace(content.find(value), value.size(), R"("importance" : "notneeded")");
    writeFile(folder / "library.json", content);
    EXPECT_EQ(LibraryFile(folder / "library.json").load().error().cause, Cause::wrongShape);
}

TEST(LibraryFile, inThePlaceOfAFolderOrBehindAFileIsAFailure) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "library.json");
    writeFile(folder / "file", "content");
    const LibraryFile asFolder(folder / "library.json");
    EXPECT_EQ(asFolder.load().error(), systemError(EISDIR));
    EXPECT_EQ(asFolder.save(Library()).error(), systemError(EISDIR));
    const LibraryFile behindFile(folder / "file/library.json");
    EXPECT_EQ(behindFile.load().error(), systemError(ENOTDIR));
    EXPECT_FALSE(behindFile.save(Library()).ok());
    EXPECT_EQ(contentOf(folder / "file"), "content");
    EXPECT_EQ(folder.names().size(), 2U);
}

TEST(LibraryFile, thatIsAPipeFailsWithoutWaiting) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(LibraryFile(folder / "pipe").load().error(), systemError(EINVAL));
}

TEST(LibraryFile, isNotSavedWithATimeThatNoReaderTakes) {
    const TemporaryFolder folder;
    Library library = tests::randomLibrary(2, 2);
    library.links[1].createdAt.seconds = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(LibraryFile(folder / "library.json").save(library).ok());
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(LibraryFile, nextToAFileOfTheLongestNameIsSaved) {
    const TemporaryFolder folder;
    const LibraryFile file(folder / std::string(255, 'n'));
    EXPECT_TRUE(file.save(Library()).ok());
    EXPECT_TRUE(file.load().ok());
}

} // namespace
} // namespace brinmoor
