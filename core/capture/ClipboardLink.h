#pragma once

#include "core/text/WebAddress.h"

#include <optional>
#include <string_view>

/// Which copied text is a link. Pure, any thread.
namespace brinmoor::ClipboardLink {

/// The copied address, if the text is one and nothing else but white space around it: at most 8192
/// bytes without that, valid as Library::validatedURL has it.
[[nodiscard]] std::optional<WebAddress> parse(std::string_view text);

} // namespace brinmoor::ClipboardLink
