#include "platform/linux/KeyboardModifiers.h"

#include "core/capture/CaptureShortcut.h"
#include "platform/linux/XcbConnection.h"

#include <xcb/xcb_keysyms.h>

#include <array>
#include <initializer_list>
#include <memory>

namespace brinmoor {
namespace {

// The numbers of X keysyms never change; <X11/keysymdef.h> names them.
constexpr xcb_keysym_t numLock = 0xff7f;
constexpr xcb_keysym_t scrollLock = 0xff14;
constexpr xcb_keysym_t altLeft = 0xffe9;
constexpr xcb_keysym_t altRight = 0xffea;
constexpr xcb_keysym_t superLeft = 0xffeb;
constexpr xcb_keysym_t superRight = 0xffec;

constexpr int keysymColumns = 4;
constexpr int modifierCount = 8;

struct FreeSymbols {
    void operator()(xcb_key_symbols_t* symbols) const noexcept { xcb_key_symbols_free(symbols); }
};
using KeySymbols = std::unique_ptr<xcb_key_symbols_t, FreeSymbols>;

bool carries(xcb_key_symbols_t* symbols, xcb_keycode_t key, xcb_keysym_t wanted) {
    for (int column = 0; column < keysymColumns; ++column) {
        if (xcb_key_symbols_get_keysym(symbols, key, column) == wanted)
            return true;
    }
    return false;
}

class ModifierMap {
public:
    explicit ModifierMap(xcb_connection_t* connection)
        : symbols_(xcb_key_symbols_alloc(connection)),
          map_(xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection),
                                              nullptr)) {}

    /// The bit of the first modifier with one of the keysyms, earlier keysyms first; 0 for none.
    [[nodiscard]] std::uint16_t bitOf(std::initializer_list<xcb_keysym_t> keysyms) const {
        for (const auto keysym : keysyms) {
            for (int modifier = 0; map_ && modifier < modifierCount; ++modifier) {
                if (modifierCarries(modifier, keysym))
                    return static_cast<std::uint16_t>(1U << modifier);
            }
        }
        return 0;
    }

    [[nodiscard]] std::vector<bool> keysWithMeaning() const {
        constexpr std::size_t allKeys = 256;
        std::vector<bool> meaningful(allKeys);
        for (std::size_t key = xKeyFirst; symbols_ && key < allKeys; ++key) {
            const auto code = static_cast<xcb_keycode_t>(key);
            meaningful[key] = xcb_key_symbols_get_keysym(symbols_.get(), code, 0) != XCB_NO_SYMBOL;
        }
        return meaningful;
    }

private:
    static constexpr std::size_t xKeyFirst = 8;

    [[nodiscard]] bool modifierCarries(int modifier, xcb_keysym_t keysym) const {
        const auto* codes = xcb_get_modifier_mapping_keycodes(map_.get());
        const int width = map_->keycodes_per_modifier;
        for (int i = 0; i < width; ++i) {
            const auto key = codes[modifier * width + i];
            if (key != 0 && carries(symbols_.get(), key, keysym))
                return true;
        }
        return false;
    }

    KeySymbols symbols_;
    XcbHeld<xcb_get_modifier_mapping_reply_t> map_;
};

/// Every sum of some of the bits, none of them first.
std::vector<std::uint16_t> combinations(std::uint16_t bits) {
    std::vector<std::uint16_t> all{0};
    for (std::uint16_t some = bits; some != 0; some = static_cast<std::uint16_t>((some - 1) & bits))
        all.push_back(some);
    return all;
}

} // namespace

KeyboardModifiers KeyboardModifiers::read(xcb_connection_t* connection) {
    const ModifierMap map(connection);
    KeyboardModifiers modifiers;
    modifiers.super_ = map.bitOf({superLeft, superRight});
    modifiers.alt_ = map.bitOf({altLeft, altRight});
    const auto held = static_cast<std::uint16_t>(XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL |
                                                 modifiers.super_ | modifiers.alt_);
    const auto locks = static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK | map.bitOf({numLock}) |
                                                  map.bitOf({scrollLock}));
    modifiers.lockMask_ = static_cast<std::uint16_t>(locks & ~held);
    modifiers.locks_ = combinations(modifiers.lockMask_);
    modifiers.keys_ = map.keysWithMeaning();
    return modifiers;
}

std::optional<std::uint16_t> KeyboardModifiers::maskFor(std::uint32_t shortcutModifiers) const {
    const std::array<std::pair<std::uint32_t, std::uint16_t>, 4> bits{{
        {ShortcutModifier::command, super_},
        {ShortcutModifier::option, alt_},
        {ShortcutModifier::shift, XCB_MOD_MASK_SHIFT},
        {ShortcutModifier::control, XCB_MOD_MASK_CONTROL},
    }};
    std::uint16_t mask = 0;
    for (const auto& [wanted, bit] : bits) {
        if ((shortcutModifiers & wanted) == 0)
            continue;
        if (bit == 0)
            return std::nullopt;
        mask = static_cast<std::uint16_t>(mask | bit);
    }
    return mask;
}

bool KeyboardModifiers::hasKey(std::uint32_t xKeyCode) const {
    return xKeyCode < keys_.size() && keys_[xKeyCode];
}

} // namespace brinmoor
