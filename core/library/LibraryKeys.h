#pragma once

#include "core/text/JsonKey.h"

/// The keys of the document. In every object they stand in sorted order.
namespace brinmoor::keys {

inline constexpr text::JsonKey browser("browser");
inline constexpr text::JsonKey collection("collection");
inline constexpr text::JsonKey collections("collections");
inline constexpr text::JsonKey createdAt("createdAt");
inline constexpr text::JsonKey iconURL("iconURL");
inline constexpr text::JsonKey id("id");
inline constexpr text::JsonKey importance("importance");
inline constexpr text::JsonKey isArchived("isArchived");
inline constexpr text::JsonKey isFavorite("isFavorite");
inline constexpr text::JsonKey links("links");
inline constexpr text::JsonKey note("note");
inline constexpr text::JsonKey tags("tags");
inline constexpr text::JsonKey title("title");
inline constexpr text::JsonKey url("url");
inline constexpr text::JsonKey version("version");

} // namespace brinmoor::keys
