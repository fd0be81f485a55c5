#include "platform/linux/X11HotKeys.h"

#include "platform/linux/HardwareKeys.h"

#include <QMetaObject>

#include <algorithm>
#include <utility>
#include <vector>

namespace brinmoor {

std::unique_ptr<X11HotKeys> X11HotKeys::open() {
    auto connection = XcbConnection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11HotKeys>(new X11HotKeys(std::move(connection)));
}

X11HotKeys::X11HotKeys(std::unique_ptr<XcbConnection> connection)
    : connection_(std::move(connection)), keyboard_(KeyboardModifiers::read(connection_->get())),
      held_(connection_->get(), connection_->root()),
      events_(connection_->get(), [this](const auto& event) { handle(event); }) {}

bool X11HotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers, std::uint32_t id) {
    unregisterHotKey(id);
    HotKey hotKey{keyCode, modifiers, 0, 0};
    if (isTaken(keyCode, modifiers) || !place(hotKey) || !grab(hotKey))
        return false;
    hotKeys_.emplace(id, hotKey);
    return true;
}

void X11HotKeys::unregisterHotKey(std::uint32_t id) {
    const auto found = hotKeys_.find(id);
    if (found == hotKeys_.end())
        return;
    release(found->second, keyboard_);
    hotKeys_.erase(found);
}

/// The server lets one client grab a combination twice; one of the two ids would never be told.
bool X11HotKeys::isTaken(std::uint32_t keyCode, std::uint32_t modifiers) const {
    return std::any_of(hotKeys_.begin(), hotKeys_.end(), [&](const auto& entry) {
        return entry.second.keyCode == keyCode && entry.second.modifiers == modifiers;
    });
}

/// Finds the key and the modifier bits on the present keyboard.
bool X11HotKeys::place(HotKey& hotKey) const {
    const auto key = hardwareKey(hotKey.keyCode);
    const auto mask = keyboard_.maskFor(hotKey.modifiers);
    if (!key || !mask || !keyboard_.hasKey(key->position + xKeyOffset))
        return false;
    hotKey.key = static_cast<xcb_keycode_t>(key->position + xKeyOffset);
    hotKey.mask = *mask;
    return true;
}

bool X11HotKeys::grab(const HotKey& hotKey) const {
    auto* connection = connection_->get();
    std::vector<xcb_void_cookie_t> cookies;
    for (const auto locks : keyboard_.lockCombinations()) {
        const auto mask = static_cast<std::uint16_t>(hotKey.mask | locks);
        cookies.push_back(xcb_grab_key_checked(connection, 0, connection_->root(), mask, hotKey.key,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool granted = true;
    for (const auto cookie : cookies) {
        const XcbHeld<xcb_generic_error_t> refusal(xcb_request_check(connection, cookie));
        granted = granted && !refusal;
    }
    if (!granted)
        release(hotKey, keyboard_);
    return granted && xcb_connection_has_error(connection) == 0;
}

void X11HotKeys::release(const HotKey& hotKey, const KeyboardModifiers& keyboard) const {
    for (const auto locks : keyboard.lockCombinations()) {
        const auto mask = static_cast<std::uint16_t>(hotKey.mask | locks);
        xcb_ungrab_key(connection_->get(), hotKey.key, connection_->root(), mask);
    }
    xcb_flush(connection_->get());
}

void X11HotKeys::handle(const xcb_generic_event_t& event) {
    held_.see(event);
    const auto type = event.response_type & 0x7f;
    if (type == XCB_KEY_PRESS)
        keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    else if (type == XCB_MAPPING_NOTIFY)
        keyboardChanged();
}

void X11HotKeys::keyPressed(const xcb_key_press_event_t& press) {
    xcb_ungrab_keyboard(connection_->get(), XCB_CURRENT_TIME);
    xcb_flush(connection_->get());
    constexpr unsigned modifierBits = 0xff;
    const auto mask = press.state & modifierBits & ~unsigned{keyboard_.lockMask()};
    const auto found = std::find_if(hotKeys_.begin(), hotKeys_.end(), [&](const auto& entry) {
        return entry.second.key == press.detail && entry.second.mask == mask;
    });
    if (!held_.begins(press.detail, press.time) || found == hotKeys_.end())
        return;
    lastPressTime_ = press.time;
    const auto id = found->first;
    if (pressed)
        pressed(id);
}

/// One change of layout is told several times; the keyboard is read once for all of them.
void X11HotKeys::keyboardChanged() {
    if (std::exchange(changeNoted_, true))
        return;
    QMetaObject::invokeMethod(
        &events_, [this] { grabAgain(); }, Qt::QueuedConnection);
}

/// What stays where it is stays grabbed: a key that is pressed meanwhile would go elsewhere.
void X11HotKeys::grabAgain() {
    changeNoted_ = false;
    const auto before = std::exchange(keyboard_, KeyboardModifiers::read(connection_->get()));
    const bool sameLocks = before.lockCombinations() == keyboard_.lockCombinations();
    std::vector<std::uint32_t> gone;
    std::map<std::uint32_t, HotKey> moved;
    for (const auto& [id, hotKey] : hotKeys_) {
        HotKey now = hotKey;
        if (!place(now))
            gone.push_back(id);
        else if (!sameLocks || now.key != hotKey.key || now.mask != hotKey.mask)
            moved.emplace(id, now);
        else
            continue;
        release(hotKey, before);
    }
    for (const auto& [id, hotKey] : moved) {
        hotKeys_[id] = hotKey;
        if (!grab(hotKey))
            gone.push_back(id);
    }
    for (const auto id : gone)
        hotKeys_.erase(id);
    for (const auto id : gone) {
        if (lost)
            lost(id);
    }
}

} // namespace brinmoor
