#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace brinmoor::text {

/// Which letters change case in their own way.
enum class FoldRule {
    standard,
    turkic, ///< Turkish and Azeri: dotted and dotless i are two letters
};

/// The rule of a locale name such as "tr_TR.UTF-8" or "de-DE".
[[nodiscard]] FoldRule foldRule(std::string_view locale) noexcept;

/// Sets the user's locale for folded(), collation and date labels. Called once at start, before
/// any other thread runs; until then the locale is the root one.
void setUserLocale(std::string_view locale);
[[nodiscard]] const std::string& userLocale() noexcept;

/// The comparison form of a text: letter case and diacritics removed (NFD, marks removed, full
/// case folding). Input that is not UTF-8 has each bad byte read as U+FFFD.
[[nodiscard]] std::string folded(std::string_view text, FoldRule rule);
/// The same under the user's locale.
[[nodiscard]] std::string folded(std::string_view text);

/// The same behind what `target` holds already: a loop over many texts keeps its storage.
void appendFolded(std::string& target, std::string_view text, FoldRule rule);
void appendFolded(std::string& target, std::string_view text);

/// Room in which texts are folded one after another: the quickest way to look at many. One thread.
class FoldRoom {
public:
    /// The comparison form, until the next call.
    [[nodiscard]] std::string_view folded(std::string_view text, FoldRule rule);
    [[nodiscard]] std::string_view folded(std::string_view text);

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

} // namespace brinmoor::text
