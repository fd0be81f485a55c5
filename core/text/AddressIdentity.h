#pragma once

#include "core/text/AddressCharacters.h"

#include <string>
#include <string_view>

namespace brinmoor::addresses {

/// Writes what Library::identity gives into `identity`, whose storage is used again: every link of
/// the library is asked at each save.
void writeIdentity(std::string_view text, std::string& identity);

} // namespace brinmoor::addresses
