#pragma once

#include "platform/Subscription.h"

#include <functional>
#include <optional>
#include <string>

namespace brinmoor {

/// What connected browsers say of the focus, for desktops where no window system tells. Main
/// thread.
class FocusReports {
public:
    virtual ~FocusReports() = default;

    /// The identifier of the browser that has the focus; absent when none says so.
    [[nodiscard]] virtual std::optional<std::string> focusedBrowser() const = 0;
    /// Told on every change of focusedBrowser().
    [[nodiscard]] virtual Subscription onFocus(std::function<void()> changed) = 0;
};

} // namespace brinmoor
