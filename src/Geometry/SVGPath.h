#pragma once

#include <QByteArrayView>
#include <QPainterPath>
#include <QString>
#include <optional>

// SVG 1.1 path data ("d" attributes) appended to a QPainterPath, elliptical
// arcs converted to cubic Béziers. Works on the UTF-8 bytes of the data.
class SVGPath {
public:
    struct ParseError {
        qsizetype offset = 0; // byte index where the error was found
        QString message;
        QString description() const;
    };

    // The byte scanner behind append(): separators, numbers and arc flags.
    class Scanner;

    // Parses the whole string; stops at the first error and returns it.
    // Segments appended before the error stay in the path.
    static std::optional<ParseError> append(QByteArrayView d, QPainterPath& path);
};
