#include "app/GlobalShortcut.h"

#include "platform/HotKeys.h"

#include <QMetaObject>

namespace brinmoor {

GlobalShortcut::GlobalShortcut(HotKeys& hotKeys) : hotKeys_(hotKeys) {
    hotKeys_.pressed = [this](std::uint32_t id) { tell(action, id); };
    hotKeys_.lost = [this](std::uint32_t id) { tell(lost, id); };
}

GlobalShortcut::~GlobalShortcut() {
    unregister();
    hotKeys_.pressed = nullptr;
    hotKeys_.lost = nullptr;
}

void GlobalShortcut::tell(const std::function<void(CaptureAction)>& callback, std::uint32_t id) {
    const auto pressed = captureActionOfHotKey(id);
    if (!pressed || !callback)
        return;
    // Not from within the window system's event: the action may open windows or take a while.
    QMetaObject::invokeMethod(
        this, [callback, pressed] { callback(*pressed); }, Qt::QueuedConnection);
}

std::vector<CaptureAction> GlobalShortcut::registerAll(const ShortcutMap& shortcuts) {
    unregister();
    std::vector<CaptureAction> failed;
    for (const CaptureAction wanted : allCaptureActions) {
        const auto shortcut = shortcuts.find(wanted);
        if (shortcut == shortcuts.end())
            continue;
        const auto& [keyCode, modifiers, character] = shortcut->second;
        if (hotKeys_.registerHotKey(keyCode, modifiers, hotKeyId(wanted)))
            references_.push_back(hotKeyId(wanted));
        else
            failed.push_back(wanted);
    }
    return failed;
}

void GlobalShortcut::unregister() {
    for (const std::uint32_t id : references_)
        hotKeys_.unregisterHotKey(id);
    references_.clear();
}

} // namespace brinmoor
