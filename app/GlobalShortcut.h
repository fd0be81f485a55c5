#pragma once

#include "core/capture/CaptureShortcut.h"

#include <QObject>

#include <functional>
#include <vector>

namespace brinmoor {

class HotKeys;

/// The system-wide shortcuts of the six commands. Main thread.
class GlobalShortcut final : public QObject {
public:
    /// `hotKeys` outlives the object, which is the only one to use it.
    explicit GlobalShortcut(HotKeys& hotKeys);
    ~GlobalShortcut() override;

    /// Called from the event loop when a registered shortcut was pressed.
    std::function<void(CaptureAction)> action;
    /// Called when the desktop withdraws a shortcut that it had accepted.
    std::function<void(CaptureAction)> lost;

    /// Replaces all registrations; gives the actions that failed, in their order.
    std::vector<CaptureAction> registerAll(const ShortcutMap& shortcuts);
    void unregister();

private:
    void tell(const std::function<void(CaptureAction)>& callback, std::uint32_t id);

    HotKeys& hotKeys_;
    std::vector<std::uint32_t> references_;
};

} // namespace brinmoor
