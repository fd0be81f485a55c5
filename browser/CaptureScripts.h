#pragma once

#include "browser/Browser.h"
#include "core/tabs/CapturedTabTarget.h"

#include <cstdint>
#include <string>

namespace brinmoor {

enum class TabRange { current, wholeWindow };
enum class ClosePreparation { none, identifyTabs };

/// The scripts of page capture, put together from their files: catalogue identifiers go between
/// single quotes, every other value goes in as JSON text.
[[nodiscard]] std::string captureScript(const Browser& browser, TabRange range,
                                        ClosePreparation preparation, std::int32_t process);
[[nodiscard]] std::string closeScript(const Browser& browser, const CapturedTabTarget& target);

} // namespace brinmoor
