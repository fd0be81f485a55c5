#include "screens/RecordedKey.h"

#include "platform/linux/HardwareKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace brinmoor {
namespace {

constexpr std::uint32_t escapeKeyCode = 53;
/// No key has this number: a key whose place isn't known can't be registered.
constexpr std::uint32_t noKeyCode = 0xffff;

constexpr std::array modifierKeys{Qt::Key_Shift,    Qt::Key_Control, Qt::Key_Meta,
                                  Qt::Key_Alt,      Qt::Key_AltGr,   Qt::Key_Super_L,
                                  Qt::Key_Super_R,  Qt::Key_Hyper_L, Qt::Key_Hyper_R,
                                  Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_ScrollLock};

std::optional<HardwareKey> placeOf(const QKeyEvent& event) {
    return hardwareKeyAtXKey(event.nativeScanCode());
}

std::uint32_t modifiersOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    std::uint32_t modifiers = 0;
    if (held.testFlag(Qt::MetaModifier))
        modifiers |= ShortcutModifier::command;
    if (held.testFlag(Qt::ShiftModifier))
        modifiers |= ShortcutModifier::shift;
    if (held.testFlag(Qt::AltModifier))
        modifiers |= ShortcutModifier::option;
    if (held.testFlag(Qt::ControlModifier))
        modifiers |= ShortcutModifier::control;
    return modifiers;
}

/// The keys of the digits are called by them, whatever Shift makes of them.
bool isDigitKey(const HardwareKey& key) {
    return key.name.size() == 1 && key.name[0] >= '0' && key.name[0] <= '9';
}

std::optional<std::string> characterOf(const QKeyEvent& event,
                                       const std::optional<HardwareKey>& place) {
    if (place && isDigitKey(*place) && event.modifiers().testFlag(Qt::ShiftModifier))
        return std::string(place->name);
    const auto key = static_cast<char32_t>(event.key());
    // From here on Qt numbers keys that write nothing.
    if (key >= 0x0100'0000 || key == 0)
        return std::nullopt;
    return QString::fromUcs4(&key, 1).toStdString();
}

} // namespace

std::optional<KeyPress> recordedKey(const QKeyEvent& event) {
    if (std::ranges::find(modifierKeys, event.key()) != modifierKeys.end())
        return std::nullopt;
    const auto place = placeOf(event);
    return KeyPress{place ? place->virtualKeyCode : noKeyCode, modifiersOf(event),
                    place ? characterOf(event, place) : std::nullopt};
}

bool isEscape(const QKeyEvent& event) {
    const auto place = placeOf(event);
    return event.key() == Qt::Key_Escape || (place && place->virtualKeyCode == escapeKeyCode);
}

} // namespace brinmoor
