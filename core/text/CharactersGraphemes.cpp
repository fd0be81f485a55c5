#include "core/text/Characters.h"

#include <unicode/ubrk.h>
#include <unicode/utext.h>

#include <memory>

namespace brinmoor::text {
namespace {

struct CloseIterator {
    void operator()(UBreakIterator* iterator) const noexcept { ubrk_close(iterator); }
};

/// Making an iterator costs more than most texts take to walk.
UBreakIterator* clusterIterator() {
    thread_local const std::unique_ptr<UBreakIterator, CloseIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<UBreakIterator, CloseIterator>(
            ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
    }();
    return iterator.get();
}

/// Whether every character is a cluster of its own, but for CR LF: so it is below U+0300.
bool isPlain(std::string_view text) noexcept {
    for (const char unit : text) {
        // The lead bytes up to 0xCB are those of the code points below U+0300.
        if (static_cast<unsigned char>(unit) > 0xCB)
            return false;
    }
    return true;
}

/// Calls `visit(end)` with the end of each cluster until it gives false.
template <class Visit>
void walkPlain(std::string_view text, Visit visit) {
    for (std::size_t at = 0; at < text.size();) {
        const bool isReturn = text[at] == '\r';
        (void)nextCharacter(text, at);
        if (isReturn && at < text.size() && text[at] == '\n')
            ++at;
        if (!visit(at))
            return;
    }
}

template <class Visit>
void walkByRules(std::string_view text, Visit visit) {
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &status);
    UBreakIterator* iterator = clusterIterator();
    ubrk_setUText(iterator, &source, &status);
    if (U_SUCCESS(status)) {
        (void)ubrk_first(iterator);
        for (auto end = ubrk_next(iterator); end != UBRK_DONE; end = ubrk_next(iterator)) {
            if (!visit(static_cast<std::size_t>(end)))
                break;
        }
    }
    utext_close(&source);
}

template <class Visit>
void walkClusters(std::string_view text, Visit visit) {
    if (isPlain(text))
        walkPlain(text, visit);
    else
        walkByRules(text, visit);
}

} // namespace

std::size_t graphemeCount(std::string_view text) {
    std::size_t count = 0;
    walkClusters(text, [&](std::size_t) { return ++count != 0; });
    return count;
}

std::string_view firstGraphemes(std::string_view text, std::size_t count) {
    // No cluster is shorter than a byte.
    if (text.size() <= count || count == 0)
        return text.substr(0, count);
    std::size_t end = 0;
    walkClusters(text, [&](std::size_t next) {
        end = next;
        return --count != 0;
    });
    return text.substr(0, end);
}

std::vector<std::string_view> graphemes(std::string_view text) {
    std::vector<std::string_view> clusters;
    std::size_t begin = 0;
    walkClusters(text, [&](std::size_t end) {
        clusters.push_back(text.substr(begin, end - begin));
        begin = end;
        return true;
    });
    return clusters;
}

} // namespace brinmoor::text
