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

} // namespace HexColor
