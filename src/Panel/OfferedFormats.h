#pragma once

#include "Base/ExportFormat.h"
#include "Base/Rendition.h"

#include <QKeySequence>
#include <QList>
#include <QString>

class Preferences;

// One way of copying the picker offers: what it is called, the catalogue
// glyph that stands for it and the panel's key for it.
struct OfferedFormat {
    ExportFormat format;
    QString label;
    QString glyph;
    QKeySequence keys;
};

// The formats the picker offers, the same in the Ctrl+Return menu and the
// inspector's "Copy as" list: the code formats, then the PNG scales switched
// on in the settings.
struct OfferedFormats {
    QList<OfferedFormat> code;
    QList<OfferedFormat> image;

    static OfferedFormats from(const Preferences& prefs, Rendition rendition);
    QList<ExportFormat> all() const;

    // The panel's key for a format: Alt+1…6 for code (Control on a Mac),
    // Ctrl+1…3 for PNG.
    static QKeySequence shortcutFor(ExportFormat format, Rendition rendition);
    // The catalogue icon that stands for a format.
    static QString glyphFor(ExportFormat format);
};
