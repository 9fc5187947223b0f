#pragma once

#include "Base/ExportFormat.h"
#include "Export/IconExport.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

// Turns one IconExport and the user's snippet options into the text that is
// copied. Users paste it into their code, so attribute order, indentation,
// line breaks and quoting are fixed to the byte. A pure function of its
// inputs: no I/O, no state, no failure.
//
// The member defaults are the program's default settings; the builder for the
// user's current settings is made from the preferences by their owner.
class Preferences;

struct SnippetBuilder {
    bool optimize = true; // one line, merged paths, no empty bounding-box path
    bool includeSize = true;
    bool tailwindCurrentColor = true; // Tailwind colour through a text-[...] class
    bool ariaHidden = false;
    QString classAttribute = QStringLiteral("icon icon-tabler"); // "{name}" = packageName
    QString reactName = QStringLiteral("Icon{Name}");            // "{Name}" = PascalCase name
    ReactLanguage reactLanguage = ReactLanguage::tsx;
    VueStyle vueStyle = VueStyle::sfc;
    QString bladePrefix = QStringLiteral("x-tabler-"); // empty means "x-tabler-"
    int pngPadding = 0;                                // pixels on each side, at scale 1
    PNGBackground pngBackground = PNGBackground::transparent;

    // The snippet of a text format, or the description of a PNG copy.
    // The options as the preferences hold them now; nothing is cached, so a
    // changed setting applies to the next copy.
    static SnippetBuilder current(const Preferences& preferences);

    QString text(ExportFormat format, const IconExport& item) const;
    // Multi-line unless optimize or forceOptimize asks for one line.
    QString svg(const IconExport& item, bool forceOptimize) const;

    friend bool operator==(const SnippetBuilder&, const SnippetBuilder&) = default;

private:
    struct Attribute {
        QString name;
        QString value;
    };
    using Attributes = QList<Attribute>;

    QString react(const IconExport& item) const;
    QString vue(const IconExport& item) const;
    QString blade(const IconExport& item) const;
    QString tailwind(const IconExport& item) const;
    QString dataURI(const IconExport& item) const;
    QString pngDescription(const IconExport& item, int scale) const;

    // Without withClass the class comes from the classAttribute template.
    Attributes svgAttributes(const IconExport& item, const QString& color, bool sizeAttrs,
                             const std::optional<QString>& withClass) const;
    QString classFromTemplate(const IconExport& item) const;
    // `color` stands for the icon set's "currentColor" on a path.
    QStringList pathElements(const IconExport& item, const QString& color, const QString& indent,
                             const QString& selfClose) const;
    struct Path {
        QByteArray d;
        PathPaint paint;
    };
    static QList<Path> mergedPaths(const PathList& paths, const PathPaints& paints);

    static QString tailwindSize(int px);
    static QString number(double value);
    static std::optional<QString> percentEncoded(QStringView text);
};
