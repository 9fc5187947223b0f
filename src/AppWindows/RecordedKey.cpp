#include "RecordedKey.h"

#include "Base/KeyboardLayout.h"

#include <array>
#include <utility>

namespace {

// {Qt key, virtual key code} on a US ANSI keyboard.
constexpr auto usKeys = std::to_array<std::pair<int, quint32>>({
    {Qt::Key_A, 0},        {Qt::Key_S, 1},          {Qt::Key_D, 2},
    {Qt::Key_F, 3},        {Qt::Key_H, 4},          {Qt::Key_G, 5},
    {Qt::Key_Z, 6},        {Qt::Key_X, 7},          {Qt::Key_C, 8},
    {Qt::Key_V, 9},        {Qt::Key_B, 11},         {Qt::Key_Q, 12},
    {Qt::Key_W, 13},       {Qt::Key_E, 14},         {Qt::Key_R, 15},
    {Qt::Key_Y, 16},       {Qt::Key_T, 17},         {Qt::Key_1, 18},
    {Qt::Key_2, 19},       {Qt::Key_3, 20},         {Qt::Key_4, 21},
    {Qt::Key_6, 22},       {Qt::Key_5, 23},         {Qt::Key_Equal, 24},
    {Qt::Key_9, 25},       {Qt::Key_7, 26},         {Qt::Key_Minus, 27},
    {Qt::Key_8, 28},       {Qt::Key_0, 29},         {Qt::Key_BracketRight, 30},
    {Qt::Key_O, 31},       {Qt::Key_U, 32},         {Qt::Key_BracketLeft, 33},
    {Qt::Key_I, 34},       {Qt::Key_P, 35},         {Qt::Key_Return, 36},
    {Qt::Key_L, 37},       {Qt::Key_J, 38},         {Qt::Key_Apostrophe, 39},
    {Qt::Key_K, 40},       {Qt::Key_Semicolon, 41}, {Qt::Key_Backslash, 42},
    {Qt::Key_Comma, 43},   {Qt::Key_Slash, 44},     {Qt::Key_N, 45},
    {Qt::Key_M, 46},       {Qt::Key_Period, 47},    {Qt::Key_Tab, 48},
    {Qt::Key_Space, 49},   {Qt::Key_QuoteLeft, 50}, {Qt::Key_Backspace, 51},
    {Qt::Key_Escape, 53},  {Qt::Key_F5, 96},        {Qt::Key_F6, 97},
    {Qt::Key_F7, 98},      {Qt::Key_F3, 99},        {Qt::Key_F8, 100},
    {Qt::Key_F9, 101},     {Qt::Key_F11, 103},      {Qt::Key_F10, 109},
    {Qt::Key_F12, 111},    {Qt::Key_Home, 115},     {Qt::Key_PageUp, 116},
    {Qt::Key_Delete, 117}, {Qt::Key_F4, 118},       {Qt::Key_End, 119},
    {Qt::Key_F2, 120},     {Qt::Key_PageDown, 121}, {Qt::Key_F1, 122},
    {Qt::Key_Left, 123},   {Qt::Key_Right, 124},    {Qt::Key_Down, 125},
    {Qt::Key_Up, 126},
});

} // namespace

namespace RecordedKey {

std::optional<quint32> virtualKeyCode(int qtKey, quint32 nativeScanCode)
{
    // Modifier keys have places too, but a shortcut needs a key besides them.
    switch (qtKey) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return std::nullopt;
    default:
        break;
    }
    if (const auto layout = KeyboardLayout::current(); layout && nativeScanCode != 0) {
        if (const auto code = layout->virtualKeyCode(nativeScanCode))
            return code;
    }
    for (const auto& [key, code] : usKeys) {
        if (key == qtKey)
            return code;
    }
    return std::nullopt;
}

quint64 modifierFlags(Qt::KeyboardModifiers modifiers)
{
    quint64 flags = 0;
    if (modifiers & Qt::ShiftModifier)
        flags |= KeyCombo::shiftFlag;
    if (modifiers & Qt::ControlModifier)
        flags |= KeyCombo::controlFlag;
    if (modifiers & Qt::AltModifier)
        flags |= KeyCombo::optionFlag;
    if (modifiers & Qt::MetaModifier)
        flags |= KeyCombo::commandFlag;
    return flags;
}

} // namespace RecordedKey
