#include "core/library/LibraryFile.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace brinmoor {
namespace {

TEST(FileErrorDescription, isOneSentenceForEachCause) {
    using Cause = FileError::Cause;
    for (const FileError& error :
         {FileError{Cause::system, ENOSPC}, FileError{Cause::system, EACCES},
          FileError{Cause::system, EROFS}, FileError{Cause::system, EIO},
          FileError{Cause::system, EISDIR}, FileError{Cause::system, ENOTDIR},
          FileError{Cause::system, EMFILE}, FileError{Cause::notJson, 0},
          FileError{Cause::wrongShape, 0}, FileError{Cause::unknownVersion, 0},
          FileError{Cause::tooLarge, 0}}) {
        const std::string text = error.description();
        ASSERT_GT(text.size(), 10U);
        EXPECT_EQ(text.find('.'), text.size() - 1) << text;
    }
}

TEST(FileErrorDescription, ofAnUnusualFailureIsTheSystemsOwn) {
    EXPECT_EQ((FileError{FileError::Cause::system, EMFILE}.description()),
              "The system reports: Too many open files.");
}

} // namespace
} // namespace brinmoor
