#pragma once

#include "core/library/SavedLink.h"

#include <string>
#include <string_view>

/// The e-mail that passes a link on. Pure, any thread.
namespace brinmoor::EmailShare {

/// The title on one line: a blank for each line end (CR LF is one), trimmed.
[[nodiscard]] std::string subject(std::string_view title);

/// The link's own title as a subject and, below it, its address. With `includeNote` and a note that
/// isn't blank, the trimmed `note` stands before them. `link.note` isn't read.
[[nodiscard]] std::string body(const SavedLink& link, std::string_view note, bool includeNote);

} // namespace brinmoor::EmailShare
