#pragma once

#include <string>

namespace brinmoor {

/// What names one open tab to the scripts that select or close it.
struct TabTarget {
    std::string windowID;
    std::string tabID; ///< empty in the Safari family
    int index = 0;     ///< place in the window when it was read, from 1
    std::string url;   ///< its address when it was read
    bool safari = false;

    friend bool operator==(const TabTarget&, const TabTarget&) = default;
};

/// The JSON object of the record. It may also stand in a script.
[[nodiscard]] std::string encoded(const TabTarget& target);

} // namespace brinmoor
