#pragma once

#include "core/text/AddressCharacters.h"

#include <string>
#include <string_view>

namespace brinmoor::addresses {

/// What Library::identity gives: `text` itself if it is that, which nearly every saved address is,
/// or else written into `room`, whose storage is used again. Every link of the library is asked at
/// each save.
[[nodiscard]] std::string_view identityOf(std::string_view text, std::string& room);

} // namespace brinmoor::addresses
