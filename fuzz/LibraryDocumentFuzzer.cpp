// Reads any bytes as a library document.

#include "core/library/LibraryDocument.h"
#include "core/library/LibraryScan.h"
#include "fuzz/Promise.h"

#include <cmath>
#include <cstdint>

using namespace brinmoor;

namespace {

/// What reading makes of a document that was read before: the rule for tags trims blanks only once
/// and may find more to take away the next time.
Library readAgain(Library library) {
    for (SavedLink& link : library.links)
        link.tags = SavedLink::normalizedTags(link.tags);
    return library;
}

/// The quick reader may pass a document on, but whatever it gives, the complete one gives too.
void compareReaders(std::string_view text) {
    std::string padded(text);
    padded.append(document::readerPadding, ' ');
    if (const auto quick = document::scanUsual(padded.data(), text.size())) {
        const auto complete = document::readAny(padded.data(), text.size());
        fuzz::promise(complete.ok() && *complete == *quick, "both readers give the same");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    compareReaders(text);
    const auto first = decodeLibrary(text);
    if (!first.ok()) {
        fuzz::promise(!first.error().description().empty(), "a refusal has its words");
        return 0;
    }
    fuzz::promise(first->version == 1, "only version 1 is read");
    for (const SavedLink& link : first->links)
        fuzz::promise(std::isfinite(link.createdAt.seconds), "points in time are finite");
    const std::string written = encodeLibrary(*first);
    const auto second = decodeLibrary(written);
    fuzz::promise(second.ok(), "what was written can be read");
    fuzz::promise(*second == readAgain(*first), "what was written reads back equal");
    return 0;
}
