#include "PathPaint.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

constexpr std::array<QByteArrayView, 3> names{"fill", "stroke", "opacity"};

// "currentColor" paints in the icon's colour, "none" not at all.
std::optional<bool> paint(QByteArrayView value)
{
    if (value == "currentColor")
        return true;
    if (value == "none")
        return false;
    return std::nullopt;
}

// A plain decimal from 0 to 1 (".5", "0.25", "1"): no sign, no exponent.
std::optional<double> fraction(QByteArrayView value)
{
    const bool plain = !value.isEmpty() && value.count('.') <= 1 && value != "." &&
                       std::all_of(value.begin(), value.end(),
                                   [](char c) { return (c >= '0' && c <= '9') || c == '.'; });
    if (!plain)
        return std::nullopt;
    double number = 0;
    const auto [end, error] = std::from_chars(value.begin(), value.end(), number);
    if (error != std::errc() || end != value.end() || number > 1)
        return std::nullopt;
    return number;
}

} // namespace

bool PathPaint::add(QByteArrayView name, QByteArrayView value)
{
    const auto known = std::find(names.begin(), names.end(), name);
    if (known == names.end())
        return false;
    const auto which = static_cast<Name>(known - names.begin());
    if (std::any_of(m_attributes.cbegin(), m_attributes.cend(),
                    [which](const Attribute& a) { return a.name == which; }))
        return false; // an element has each attribute once
    if (which == Name::opacity) {
        const auto number = fraction(value);
        if (!number)
            return false;
        m_opacity = *number;
    } else {
        const auto painted = paint(value);
        if (!painted)
            return false;
        (which == Name::fill ? m_fill : m_stroke) = painted;
    }
    m_attributes.append({which, value.toByteArray()});
    return true;
}

QByteArrayView PathPaint::text(Name name)
{
    return names[static_cast<std::size_t>(name)];
}
