#include "core/capture/ClipboardLink.h"

#include "core/library/Library.h"
#include "core/text/Characters.h"

namespace brinmoor::ClipboardLink {

namespace {

constexpr std::size_t longestAddress = 8192;

bool hasWhiteSpace(std::string_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (text::isWhiteSpace(text::nextCharacter(text, at)))
            return true;
    return false;
}

} // namespace

std::optional<WebAddress> parse(std::string_view text) {
    const std::string_view address = text::trimmed(text);
    if (address.size() > longestAddress || hasWhiteSpace(address))
        return std::nullopt;
    return Library::validatedURL(address);
}

} // namespace brinmoor::ClipboardLink
