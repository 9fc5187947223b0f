#pragma once

#include <QColor>
#include <QStringView>
#include <optional>

// Hexadecimal colours as CSS reads them, alpha last: #rgb, #rgba, #rrggbb,
// #rrggbbaa. The preview and every export read a colour setting through this
// one parser, so a colour with alpha looks in the picker as it does in a copy
// (QColor and QML would take eight digits as #aarrggbb).
namespace HexColor {

// Nothing for anything else, such as "currentColor".
std::optional<QColor> parse(QStringView text);

// The colour values a setting or an export takes: "currentColor" or a
// hexadecimal colour, with nothing around it. Whatever is accepted ends up in
// snippets as typed, so anything else is refused where it comes in.
bool isColorValue(QStringView text);

// What a colour field makes of typed text: white space trimmed,
// "currentColor" in any case, or a hexadecimal colour with or without "#",
// written "#RRGGBB" ("#RRGGBBAA" when not opaque). Nothing for anything else.
std::optional<QString> fromTyped(QStringView text);

} // namespace HexColor
