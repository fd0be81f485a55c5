#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/HeldKeys.h"
#include "platform/linux/KeyboardModifiers.h"
#include "platform/linux/XcbConnection.h"
#include "platform/linux/XcbEvents.h"

#include <map>
#include <memory>

namespace brinmoor {

/// Hot keys by passive grabs of the X server. Keys count by their place on the keyboard, whatever
/// the layout and whichever lock is on. The keyboard is let go at once after a press, so that a
/// panel that opens for it can take the focus.
class X11HotKeys final : public HotKeys {
public:
    /// Nothing when no X server answers.
    [[nodiscard]] static std::unique_ptr<X11HotKeys> open();

    [[nodiscard]] bool registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                      std::uint32_t id) override;
    void unregisterHotKey(std::uint32_t id) override;

    /// When the last hot key was pressed, in the X server's milliseconds; 0 before the first one.
    /// Window managers want it with a request to take the focus.
    [[nodiscard]] std::uint32_t lastPressTime() const { return lastPressTime_; }

private:
    struct HotKey {
        std::uint32_t keyCode;
        std::uint32_t modifiers;
        xcb_keycode_t key;
        std::uint16_t mask;
    };

    explicit X11HotKeys(std::unique_ptr<XcbConnection> connection);
    [[nodiscard]] bool isTaken(std::uint32_t keyCode, std::uint32_t modifiers) const;
    [[nodiscard]] bool place(HotKey& hotKey) const;
    [[nodiscard]] bool grab(const HotKey& hotKey) const;
    void release(const HotKey& hotKey, const KeyboardModifiers& keyboard) const;
    void handle(const xcb_generic_event_t& event);
    void keyPressed(const xcb_key_press_event_t& press);
    void keyboardChanged();
    void grabAgain();

    std::unique_ptr<XcbConnection> connection_;
    KeyboardModifiers keyboard_;
    HeldKeys held_;
    std::map<std::uint32_t, HotKey> hotKeys_;
    std::uint32_t lastPressTime_ = 0;
    bool changeNoted_ = false;
    XcbEvents events_;
};

} // namespace brinmoor
