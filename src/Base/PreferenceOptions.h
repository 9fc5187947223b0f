#pragma once

#include "RawValue.h"
#include "Rendition.h"

#include <QString>

// The choices of the settings that are this subsystem's own. Stored by their
// raw values; cases in the order pickers list them.

// Where the picker panel opens.
enum class PickerPosition { underMenuBarIcon, centered, mouse };
// What the picker does after a copy.
enum class AfterCopy { close, keepOpen, closeAndPaste };
// The appearance forced on the program's own windows.
enum class AppearanceMode { system, light, dark };

template <> struct RawValues<PickerPosition> {
    static constexpr std::array<const char*, 3> names{"underMenuBarIcon", "centered", "mouse"};
};
template <> struct RawValues<AfterCopy> {
    static constexpr std::array<const char*, 3> names{"close", "keepOpen", "closeAndPaste"};
};
template <> struct RawValues<AppearanceMode> {
    static constexpr std::array<const char*, 3> names{"system", "light", "dark"};
};

namespace PreferenceLabels {

// "Under the menu bar icon" names the tray in the rendition's words.
QString label(PickerPosition position, Rendition rendition);
QString label(AfterCopy afterCopy);
QString label(AppearanceMode mode);

} // namespace PreferenceLabels
