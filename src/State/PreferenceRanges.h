#pragma once

#include <QStringView>
#include <algorithm>
#include <optional>

// The values a numeric setting may take, ends included. A stored value
// outside (a hand edit, an older version) is read as the nearer end; a value
// the user gives outside is refused.
struct ValueRange {
    double min;
    double max;
    bool contains(double value) const { return value >= min && value <= max; }
    template <typename T> T clamp(T value) const
    {
        return std::clamp(value, static_cast<T>(min), static_cast<T>(max));
    }
};

namespace PreferenceRanges {

inline constexpr ValueRange recentsLimit{0, 500};
// Icon sizes in pixels, for the default size, `export --size` and a last copy.
inline constexpr ValueRange iconSize{1, 4096};
inline constexpr ValueRange stroke{0.1, 100};
inline constexpr ValueRange pngPadding{0, 1024};

// The range of the setting `key`; nullopt for a setting that is not a number.
std::optional<ValueRange> forKey(QStringView key);

} // namespace PreferenceRanges
