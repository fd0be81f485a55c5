#pragma once

#include "core/library/LibraryFile.h"
#include "core/text/JsonWriter.h"

#include <cstddef>
#include <cstdint>

/// The document between its value and its bytes. For LibraryFile and its tests.
namespace brinmoor::document {

/// The most bytes that the reader takes, and so the most that may be written.
inline constexpr std::uint64_t largestSize = 0xFFFFFFFF;
/// What the reader wants to be its own behind the bytes that it reads.
inline constexpr std::size_t readerPadding = 64;

/// Hands the document to the sink piece by piece; false when the sink refused one.
[[nodiscard]] bool write(const Library& library, text::JsonWriter::Sink sink);

/// Whether every number of the document has a JSON form: points in time are finite.
[[nodiscard]] bool isWritable(const Library& library) noexcept;

/// Reads a document with at least readerPadding bytes of room behind it.
[[nodiscard]] Result<Library, FileError> readPadded(const char* bytes, std::size_t size);
/// The same by the complete reader alone, whose word on any document counts.
[[nodiscard]] Result<Library, FileError> readAny(const char* bytes, std::size_t size);

} // namespace brinmoor::document
