#pragma once

#include <string>
#include <string_view>

/// The one door through which a fixed text becomes what the user reads.
///
/// Texts stand in the sources as they were given. Where one of them would be false on this
/// platform, the application installs a wording that answers with other words; without one, as in
/// the tests of the texts themselves, a text is its own wording.
namespace brinmoor::text {

using Wording = std::string (*)(std::string_view source);

/// Called once at start, before any other thread runs. nullptr: every text is its own wording.
void setWording(Wording wording) noexcept;

/// The words for a fixed text. Composed messages word each of their fixed pieces.
[[nodiscard]] std::string worded(std::string_view source);

} // namespace brinmoor::text
