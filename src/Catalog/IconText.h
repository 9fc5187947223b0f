#pragma once

#include <QByteArrayView>

// What a catalogue may hold in the places that leave the program as code or
// reach a terminal: icon names and path data. A downloaded file with anything
// else is refused as a whole, so that no snippet, file name or listing ever
// carries markup or control characters from it.
namespace IconText {

// One or more of a-z, 0-9 and "-", as every Tabler icon is named.
bool isName(QByteArrayView name);

// Only what SVG path data is written with: the command letters, digits,
// signs, the decimal point, exponents, commas and white space.
bool isPathData(QByteArrayView data);

} // namespace IconText
