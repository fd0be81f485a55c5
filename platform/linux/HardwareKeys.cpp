#include "platform/linux/HardwareKeys.h"

#include <algorithm>
#include <array>

namespace brinmoor {
namespace {

// By virtual key code: 10 is the extra key of ISO keyboards, 93 and 94 those of Japanese ones, 114
// (Help) stands where other keyboards have Insert.
// clang-format off
constexpr std::array<HardwareKey, 103> keys{{
    {0, 30, "a"}, {1, 31, "s"}, {2, 32, "d"}, {3, 33, "f"}, {4, 35, "h"}, {5, 34, "g"},
    {6, 44, "z"}, {7, 45, "x"}, {8, 46, "c"}, {9, 47, "v"}, {10, 86, "less"}, {11, 48, "b"},
    {12, 16, "q"}, {13, 17, "w"}, {14, 18, "e"}, {15, 19, "r"}, {16, 21, "y"}, {17, 20, "t"},
    {18, 2, "1"}, {19, 3, "2"}, {20, 4, "3"}, {21, 5, "4"}, {22, 7, "6"}, {23, 6, "5"},
    {24, 13, "equal"}, {25, 10, "9"}, {26, 8, "7"}, {27, 12, "minus"}, {28, 9, "8"},
    {29, 11, "0"}, {30, 27, "bracketright"}, {31, 24, "o"}, {32, 22, "u"},
    {33, 26, "bracketleft"}, {34, 23, "i"}, {35, 25, "p"}, {36, 28, "Return"}, {37, 38, "l"},
    {38, 36, "j"}, {39, 40, "apostrophe"}, {40, 37, "k"}, {41, 39, "semicolon"},
    {42, 43, "backslash"}, {43, 51, "comma"}, {44, 53, "slash"}, {45, 49, "n"}, {46, 50, "m"},
    {47, 52, "period"}, {48, 15, "Tab"}, {49, 57, "space"}, {50, 41, "grave"},
    {51, 14, "BackSpace"}, {53, 1, "Escape"}, {64, 187, "F17"}, {65, 83, "KP_Decimal"},
    {67, 55, "KP_Multiply"}, {69, 78, "KP_Add"}, {71, 69, "Num_Lock"}, {75, 98, "KP_Divide"},
    {76, 96, "KP_Enter"}, {78, 74, "KP_Subtract"}, {79, 188, "F18"}, {80, 189, "F19"},
    {81, 117, "KP_Equal"}, {82, 82, "KP_0"}, {83, 79, "KP_1"}, {84, 80, "KP_2"}, {85, 81, "KP_3"},
    {86, 75, "KP_4"}, {87, 76, "KP_5"}, {88, 77, "KP_6"}, {89, 71, "KP_7"}, {90, 190, "F20"},
    {91, 72, "KP_8"}, {92, 73, "KP_9"}, {93, 124, "yen"}, {94, 89, "underscore"}, {96, 63, "F5"},
    {97, 64, "F6"}, {98, 65, "F7"}, {99, 61, "F3"}, {100, 66, "F8"}, {101, 67, "F9"},
    {103, 87, "F11"}, {105, 183, "F13"}, {106, 186, "F16"}, {107, 184, "F14"}, {109, 68, "F10"},
    {111, 88, "F12"}, {113, 185, "F15"}, {114, 110, "Insert"}, {115, 102, "Home"},
    {116, 104, "Page_Up"}, {117, 111, "Delete"}, {118, 62, "F4"}, {119, 107, "End"},
    {120, 60, "F2"}, {121, 109, "Page_Down"}, {122, 59, "F1"}, {123, 105, "Left"},
    {124, 106, "Right"}, {125, 108, "Down"}, {126, 103, "Up"},
}};
// clang-format on

template <class Matches>
std::optional<HardwareKey> firstKey(Matches matches) {
    const auto* found = std::find_if(keys.begin(), keys.end(), matches);
    return found == keys.end() ? std::nullopt : std::optional(*found);
}

} // namespace

std::optional<HardwareKey> hardwareKey(std::uint32_t virtualKeyCode) {
    return firstKey([=](const auto& key) { return key.virtualKeyCode == virtualKeyCode; });
}

std::optional<HardwareKey> hardwareKeyAtXKey(std::uint32_t xKeyCode) {
    return firstKey([=](const auto& key) { return key.position + xKeyOffset == xKeyCode; });
}

} // namespace brinmoor
