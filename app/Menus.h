#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brinmoor {

/// One entry of a menu; one without a title is the line between two groups.
struct MenuItem {
    std::string title;
    std::string key; ///< a letter that chooses it with Control in the library window; may be empty
    std::function<void()> run;
    std::function<bool()> isEnabled; ///< absent: it always is
};

struct Menu {
    std::string title;
    std::vector<MenuItem> items;
};

} // namespace brinmoor
