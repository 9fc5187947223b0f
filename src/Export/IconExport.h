#pragma once

#include "Catalog/Icon.h"

#include <QString>

// One icon prepared for export: the catalogue entry with the look the user
// chose. A plain value handed to every snippet builder and renderer.
struct IconExport {
    Icon icon;
    IconStyle style = IconStyle::outline;
    int size = 24;                                  // edge length at scale 1
    double stroke = 2;                              // in viewBox units
    QString color = QStringLiteral("currentColor"); // any CSS colour, written verbatim

    // A filled request for an icon without a filled form is treated as
    // outline everywhere: paths, attributes and names.
    bool isFilled() const;
    // The path data to draw; empty when the icon lacks that form.
    PathList paths() const;
    // How each of those paths is painted: empty when all are plain.
    PathPaints paints() const;
    // home or home-filled: file names, Blade tags and "{name}" in class templates.
    QString packageName() const;

    friend bool operator==(const IconExport&, const IconExport&) = default;
};
