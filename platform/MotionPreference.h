#pragma once

#include "platform/Subscription.h"

#include <functional>

namespace brinmoor {

/// Whether the user has asked the desktop for less movement. Main thread.
class MotionPreference {
public:
    virtual ~MotionPreference() = default;

    /// False until the desktop has answered, and where it has no such setting.
    [[nodiscard]] virtual bool isReduced() const = 0;
    [[nodiscard]] virtual Subscription onChange(std::function<void()> changed) = 0;
};

} // namespace brinmoor
