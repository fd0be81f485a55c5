#pragma once

#include "core/text/Fold.h"

#include <string_view>

namespace brinmoor::tests {

/// The user's locale while this lives; the root one again behind it.
class UserLocale {
public:
    explicit UserLocale(std::string_view name) { text::setUserLocale(name); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;
    ~UserLocale() { text::setUserLocale(""); }
};

} // namespace brinmoor::tests
