#pragma once

#include <string_view>

/// The parts of the tool that are written in JavaScript.
namespace brinmoor::automation {

/// Gives arrays a stable sort.
extern const std::string_view stableSort;

/// A function that takes the bridge, makes `Application` known and gives another function: one that
/// calls `run` and gives ["value", text] or ["failure", message, number].
extern const std::string_view objectModel;

} // namespace brinmoor::automation
