#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <optional>

// String-backed enums: each enum whose cases run 0..N-1 specialises
// RawValues<E> with `static constexpr std::array<const char*, N> names`, in
// declaration order. The names are what settings files and JSON hold.
template <typename E> struct RawValues;

template <typename E> QString rawValue(E value)
{
    return QLatin1String(RawValues<E>::names[static_cast<std::size_t>(value)]);
}

// Exact, case-sensitive match against the raw values.
template <typename E> std::optional<E> fromRawValue(QStringView text)
{
    const auto& names = RawValues<E>::names;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (text == QLatin1String(names[i]))
            return static_cast<E>(i);
    }
    return std::nullopt;
}

template <typename E> constexpr auto allCases()
{
    constexpr std::size_t count = RawValues<E>::names.size();
    std::array<E, count> cases{};
    for (std::size_t i = 0; i < count; ++i)
        cases[i] = static_cast<E>(i);
    return cases;
}
