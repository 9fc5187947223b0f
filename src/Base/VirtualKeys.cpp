#include "VirtualKeys.h"

#include <array>
#include <utility>

namespace {

// {virtual key code, evdev code}. Keys with two places on Apple's ISO
// keyboards follow the USB usage they send: the section key (10) is the extra
// key beside the left Shift (KEY_102ND), the grave key (50) is KEY_GRAVE.
constexpr std::array<std::pair<quint32, quint32>, 117> table{{
    {0, 30},    // A
    {1, 31},    // S
    {2, 32},    // D
    {3, 33},    // F
    {4, 35},    // H
    {5, 34},    // G
    {6, 44},    // Z
    {7, 45},    // X
    {8, 46},    // C
    {9, 47},    // V
    {10, 86},   // ISO section
    {11, 48},   // B
    {12, 16},   // Q
    {13, 17},   // W
    {14, 18},   // E
    {15, 19},   // R
    {16, 21},   // Y
    {17, 20},   // T
    {18, 2},    // 1
    {19, 3},    // 2
    {20, 4},    // 3
    {21, 5},    // 4
    {22, 7},    // 6
    {23, 6},    // 5
    {24, 13},   // =
    {25, 10},   // 9
    {26, 8},    // 7
    {27, 12},   // -
    {28, 9},    // 8
    {29, 11},   // 0
    {30, 27},   // ]
    {31, 24},   // O
    {32, 22},   // U
    {33, 26},   // [
    {34, 23},   // I
    {35, 25},   // P
    {36, 28},   // Return
    {37, 38},   // L
    {38, 36},   // J
    {39, 40},   // '
    {40, 37},   // K
    {41, 39},   // ;
    {42, 43},   // backslash
    {43, 51},   // ,
    {44, 53},   // /
    {45, 49},   // N
    {46, 50},   // M
    {47, 52},   // .
    {48, 15},   // Tab
    {49, 57},   // Space
    {50, 41},   // `
    {51, 14},   // Delete (Backspace)
    {53, 1},    // Escape
    {54, 126},  // right Command
    {55, 125},  // Command
    {56, 42},   // Shift
    {57, 58},   // Caps Lock
    {58, 56},   // Option
    {59, 29},   // Control
    {60, 54},   // right Shift
    {61, 100},  // right Option
    {62, 97},   // right Control
    {64, 187},  // F17
    {65, 83},   // keypad .
    {67, 55},   // keypad *
    {69, 78},   // keypad +
    {71, 69},   // keypad Clear (Num Lock's place)
    {72, 115},  // volume up
    {73, 114},  // volume down
    {74, 113},  // mute
    {75, 98},   // keypad /
    {76, 96},   // keypad Enter
    {78, 74},   // keypad -
    {79, 188},  // F18
    {80, 189},  // F19
    {81, 117},  // keypad =
    {82, 82},   // keypad 0
    {83, 79},   // keypad 1
    {84, 80},   // keypad 2
    {85, 81},   // keypad 3
    {86, 75},   // keypad 4
    {87, 76},   // keypad 5
    {88, 77},   // keypad 6
    {89, 71},   // keypad 7
    {90, 190},  // F20
    {91, 72},   // keypad 8
    {92, 73},   // keypad 9
    {93, 124},  // JIS yen
    {94, 89},   // JIS underscore (ro)
    {95, 95},   // JIS keypad comma
    {96, 63},   // F5
    {97, 64},   // F6
    {98, 65},   // F7
    {99, 61},   // F3
    {100, 66},  // F8
    {101, 67},  // F9
    {103, 87},  // F11
    {105, 183}, // F13
    {106, 186}, // F16
    {107, 184}, // F14
    {109, 68},  // F10
    {110, 127}, // context menu (Compose)
    {111, 88},  // F12
    {113, 185}, // F15
    {114, 110}, // Help (Insert's place)
    {115, 102}, // Home
    {116, 104}, // Page Up
    {117, 111}, // forward delete
    {118, 62},  // F4
    {119, 107}, // End
    {120, 60},  // F2
    {121, 109}, // Page Down
    {122, 59},  // F1
    {123, 105}, // Left
    {124, 106}, // Right
    {125, 108}, // Down
    {126, 103}, // Up
}};

} // namespace

namespace VirtualKeys {

std::optional<quint32> evdevCode(quint32 virtualKeyCode)
{
    for (const auto& [virtualCode, evdev] : table) {
        if (virtualCode == virtualKeyCode)
            return evdev;
    }
    return std::nullopt;
}

std::optional<quint32> virtualKeyCode(quint32 evdevCode)
{
    for (const auto& [virtualCode, evdev] : table) {
        if (evdev == evdevCode)
            return virtualCode;
    }
    return std::nullopt;
}

} // namespace VirtualKeys
