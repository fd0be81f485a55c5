#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

/// The identity of one tab, for closing it later.
struct CapturedTabTarget {
    std::string windowID; ///< the browser's identifier of the window, as text
    int index = -1;       ///< Safari family: place in the window, from 0; Chromium family: -1
    std::optional<std::string> tabID; ///< Chromium family only
    std::string url;                  ///< the tab's address when it was read
    bool safari = false;
    std::string browserID;
    std::int32_t processID = 0; ///< the browser's process; 0 when it could not be found

    friend bool operator==(const CapturedTabTarget&, const CapturedTabTarget&) = default;
};

/// The JSON object of the record, `tabID` left out when absent.
[[nodiscard]] std::string encoded(const CapturedTabTarget& target);

} // namespace brinmoor
