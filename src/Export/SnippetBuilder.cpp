#include "SnippetBuilder.h"

#include "AttributeText.h"
#include "State/Preferences.h"

#include <algorithm>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Every value goes out escaped: colours, class templates and path data come
// from settings and downloads, and must not end the attribute they stand in.
QString quoted(const QString& name, const QString& value)
{
    return name + u"=\""_s + AttributeText::escaped(value) + u'"';
}

// The path's own attributes follow "d" in the icon set's order. Its
// "currentColor" means the icon's colour, which may be another here. JSX
// takes these names as they are: none of them has a hyphen.
QString pathElement(const QString& indent, QByteArrayView d, const PathPaint& paint,
                    const QString& color, const QString& selfClose)
{
    QString element = indent + quoted(u"<path d"_s, QString::fromUtf8(d));
    for (const PathPaint::Attribute& attribute : paint.attributes()) {
        const QString value =
            attribute.value == "currentColor" ? color : QString::fromLatin1(attribute.value);
        element += u' ' + quoted(QString::fromLatin1(PathPaint::text(attribute.name)), value);
    }
    return element + selfClose;
}

} // namespace

SnippetBuilder SnippetBuilder::current(const Preferences& preferences)
{
    SnippetBuilder builder;
    builder.optimize = preferences.optimizeSVG();
    builder.includeSize = preferences.includeSize();
    builder.tailwindCurrentColor = preferences.tailwindCurrentColor();
    builder.ariaHidden = preferences.ariaHidden();
    builder.classAttribute = preferences.classAttribute();
    builder.reactName = preferences.reactComponentName();
    builder.reactLanguage = preferences.reactLanguage();
    builder.vueStyle = preferences.vueStyle();
    builder.bladePrefix = preferences.bladePrefix();
    // Stored numbers are taken as they are, but must not overflow the
    // pixel arithmetic.
    builder.pngPadding =
        static_cast<int>(std::clamp<qint64>(preferences.pngPadding(), -100'000, 100'000));
    builder.pngBackground = preferences.pngBackground();
    return builder;
}

QString SnippetBuilder::text(ExportFormat format, const IconExport& item) const
{
    switch (format) {
    case ExportFormat::svg:
        return svg(item, false);
    case ExportFormat::jsx:
        return react(item);
    case ExportFormat::vue:
        return vue(item);
    case ExportFormat::blade:
        return blade(item);
    case ExportFormat::tailwind:
        return tailwind(item);
    case ExportFormat::dataURI:
        return dataURI(item);
    case ExportFormat::png1:
        return pngDescription(item, 1);
    case ExportFormat::png2:
        return pngDescription(item, 2);
    case ExportFormat::png3:
        return pngDescription(item, 3);
    }
    return {};
}

QString SnippetBuilder::svg(const IconExport& item, bool forceOptimize) const
{
    const Attributes attributes = svgAttributes(item, item.color, true, std::nullopt);
    if (optimize || forceOptimize) {
        QString line = u"<svg"_s;
        for (const Attribute& attribute : attributes)
            line += u' ' + quoted(attribute.name, attribute.value);
        line += u'>';
        for (const Path& path : mergedPaths(item.paths(), item.paints()))
            line += pathElement({}, path.d, path.paint, item.color, u"/>"_s);
        return line + u"</svg>"_s;
    }
    QStringList lines{u"<svg"_s};
    for (const Attribute& attribute : attributes)
        lines += u"  "_s + quoted(attribute.name, attribute.value);
    lines += u">"_s;
    lines += pathElements(item, item.color, u"  "_s, u" />"_s);
    lines += u"</svg>"_s;
    return lines.join(u'\n');
}

QString SnippetBuilder::react(const IconExport& item) const
{
    const QString base = item.icon.pascalName() + (item.isFilled() ? u"Filled"_s : QString());
    QString name = reactName.contains(u"{Name}"_s) ? reactName : u"Icon{Name}"_s;
    name.replace(u"{Name}"_s, base);

    QStringList attributes{u"xmlns=\"http://www.w3.org/2000/svg\""_s};
    if (includeSize) {
        const QString size = QString::number(item.size);
        attributes += u"width={"_s + size + u'}';
        attributes += u"height={"_s + size + u'}';
    }
    attributes += u"viewBox=\"0 0 24 24\""_s;
    if (item.isFilled()) {
        attributes += quoted(u"fill"_s, item.color);
    } else {
        attributes += u"fill=\"none\""_s;
        attributes += quoted(u"stroke"_s, item.color);
        attributes += u"strokeWidth={"_s + number(item.stroke) + u'}';
        attributes += u"strokeLinecap=\"round\""_s;
        attributes += u"strokeLinejoin=\"round\""_s;
    }
    if (const QString cls = classFromTemplate(item); !cls.isEmpty())
        attributes += quoted(u"className"_s, cls);
    if (ariaHidden)
        attributes += u"aria-hidden=\"true\""_s;
    attributes += u"{...props}"_s;

    QStringList lines;
    if (reactLanguage == ReactLanguage::tsx) {
        lines += u"import type { SVGProps } from \"react\";"_s;
        lines += QString();
        lines += u"export function "_s + name + u"(props: SVGProps<SVGSVGElement>) {"_s;
    } else {
        lines += u"export function "_s + name + u"(props) {"_s;
    }
    lines += u"  return ("_s;
    lines += u"    <svg"_s;
    for (const QString& attribute : std::as_const(attributes))
        lines += u"      "_s + attribute;
    lines += u"    >"_s;
    lines += pathElements(item, item.color, u"      "_s, u" />"_s);
    lines += u"    </svg>"_s;
    lines += u"  );"_s;
    lines += u"}"_s;
    return lines.join(u'\n');
}

QString SnippetBuilder::vue(const IconExport& item) const
{
    const bool sfc = vueStyle == VueStyle::sfc;
    QStringList lines;
    if (sfc) {
        // The size prop stays declared when width and height are left out,
        // so a component's users can still pass it.
        lines += u"<script setup>"_s;
        lines += u"defineProps({"_s;
        lines += u"  size: { type: [Number, String], default: "_s + QString::number(item.size) +
                 u" },"_s;
        if (!item.isFilled()) {
            lines += u"  strokeWidth: { type: [Number, String], default: "_s + number(item.stroke) +
                     u" },"_s;
        }
        lines += u"});"_s;
        lines += u"</script>"_s;
        lines += QString();
    }
    lines += u"<template>"_s;
    lines += u"  <svg"_s;
    for (const Attribute& attribute : svgAttributes(item, item.color, true, std::nullopt)) {
        if (sfc && (attribute.name == u"width"_s || attribute.name == u"height"_s))
            lines += u"    :"_s + quoted(attribute.name, u"size"_s);
        else if (sfc && attribute.name == u"stroke-width"_s)
            lines += u"    :"_s + quoted(attribute.name, u"strokeWidth"_s);
        else
            lines += u"    "_s + quoted(attribute.name, attribute.value);
    }
    lines += u"  >"_s;
    lines += pathElements(item, item.color, u"    "_s, u" />"_s);
    lines += u"  </svg>"_s;
    lines += u"</template>"_s;
    return lines.join(u'\n');
}

// A tag of the Blade icon package: the package draws the icon, the tag only
// sizes and colours it, so no path data and none of the SVG options apply.
QString SnippetBuilder::blade(const IconExport& item) const
{
    const QString size = tailwindSize(item.size);
    QStringList classes{u"w-"_s + size, u"h-"_s + size};
    if (item.color != u"currentColor"_s)
        classes += u"text-["_s + item.color + u']';

    QStringList attributes{quoted(u"class"_s, classes.join(u' '))};
    if (!item.isFilled() && item.stroke != 2)
        attributes += quoted(u"stroke-width"_s, number(item.stroke));
    if (ariaHidden)
        attributes += u"aria-hidden=\"true\""_s;

    const QString prefix = bladePrefix.isEmpty() ? u"x-tabler-"_s : bladePrefix;
    return u'<' + prefix + item.packageName() + u"\n  "_s + attributes.join(u"\n  "_s) + u" />"_s;
}

QString SnippetBuilder::tailwind(const IconExport& item) const
{
    QStringList classes{u"size-"_s + tailwindSize(item.size), u"shrink-0"_s};
    QString color = item.color;
    if (tailwindCurrentColor && color != u"currentColor"_s) {
        classes += u"text-["_s + color + u']';
        color = u"currentColor"_s;
    }

    QStringList lines{u"<svg"_s};
    for (const Attribute& attribute : svgAttributes(item, color, false, classes.join(u' ')))
        lines += u"  "_s + quoted(attribute.name, attribute.value);
    lines += u">"_s;
    lines += pathElements(item, color, u"  "_s, u" />"_s);
    lines += u"</svg>"_s;
    return lines.join(u'\n');
}

QString SnippetBuilder::dataURI(const IconExport& item) const
{
    // An image source has no class to style and nothing to hide from
    // assistive technology, and it needs its own size.
    SnippetBuilder plain = *this;
    plain.includeSize = true;
    plain.classAttribute.clear();
    plain.ariaHidden = false;
    const QString source = plain.svg(item, true);

    QString encoded = percentEncoded(source).value_or(source);
    encoded.replace(u' ', u"%20"_s);
    return u"data:image/svg+xml,"_s + encoded;
}

QString SnippetBuilder::pngDescription(const IconExport& item, int scale) const
{
    const QString pixels = QString::number((item.size + 2 * pngPadding) * scale);
    const QString suffix = scale == 1 ? QString() : u'@' + QString::number(scale) + u'x';
    return item.packageName() + suffix + u".png\n"_s + pixels + u" \u00D7 "_s + pixels +
           u" px \u00B7 "_s + Formats::label(pngBackground).toLower() +
           u"\nCopied to clipboard as image"_s;
}

SnippetBuilder::Attributes
SnippetBuilder::svgAttributes(const IconExport& item, const QString& color, bool sizeAttrs,
                              const std::optional<QString>& withClass) const
{
    Attributes attributes;
    attributes.reserve(10);
    const auto add = [&attributes](QString name, QString value) {
        attributes.append(Attribute{std::move(name), std::move(value)});
    };
    add(u"xmlns"_s, u"http://www.w3.org/2000/svg"_s);
    if (sizeAttrs && includeSize) {
        add(u"width"_s, QString::number(item.size));
        add(u"height"_s, QString::number(item.size));
    }
    add(u"viewBox"_s, u"0 0 24 24"_s);
    if (item.isFilled()) {
        add(u"fill"_s, color);
    } else {
        add(u"fill"_s, u"none"_s);
        add(u"stroke"_s, color);
        add(u"stroke-width"_s, number(item.stroke));
        add(u"stroke-linecap"_s, u"round"_s);
        add(u"stroke-linejoin"_s, u"round"_s);
    }
    if (const QString cls = withClass ? *withClass : classFromTemplate(item); !cls.isEmpty())
        add(u"class"_s, cls);
    if (ariaHidden)
        add(u"aria-hidden"_s, u"true"_s);
    return attributes;
}

QString SnippetBuilder::classFromTemplate(const IconExport& item) const
{
    QString cls = classAttribute;
    return cls.replace(u"{name}"_s, item.packageName()).trimmed();
}

QStringList SnippetBuilder::pathElements(const IconExport& item, const QString& color,
                                         const QString& indent, const QString& selfClose) const
{
    QStringList lines;
    const PathList paths = item.paths();
    const PathPaints paints = item.paints();
    if (optimize) {
        for (const Path& path : mergedPaths(paths, paints))
            lines += pathElement(indent, path.d, path.paint, color, selfClose);
        return lines;
    }
    // The empty 24 x 24 path keeps the icon's bounds in editors that crop to content.
    lines += indent + u"<path stroke=\"none\" d=\"M0 0h24v24H0z\" fill=\"none\""_s + selfClose;
    for (qsizetype i = 0; i < paths.size(); ++i)
        lines += pathElement(indent, paths[i], i < paints.size() ? paints[i] : PathPaint(), color,
                             selfClose);
    return lines;
}

// Path data that starts with an absolute move does not depend on where the
// previous piece ended, so such pieces can be joined into one path. A path
// painted on its own terms keeps its element, and the plain paths on either
// side of it stay apart, so the drawing order holds. An empty list still
// gives one (empty) path.
QList<SnippetBuilder::Path> SnippetBuilder::mergedPaths(const PathList& paths,
                                                        const PathPaints& paints)
{
    const auto paintOf = [&](qsizetype i) { return i < paints.size() ? paints[i] : PathPaint(); };
    QList<Path> result;
    const bool allAbsolute = std::all_of(paths.cbegin(), paths.cend(),
                                         [](const QByteArray& d) { return d.startsWith('M'); });
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const PathPaint paint = paintOf(i);
        if (allAbsolute && paint.isPlain() && !result.isEmpty() && result.last().paint.isPlain())
            result.last().d += paths[i];
        else
            result.append({paths[i], paint});
    }
    if (result.isEmpty())
        result.append(Path());
    return result;
}

// One Tailwind spacing unit is 4 px; half units exist, other sizes need an
// arbitrary value.
QString SnippetBuilder::tailwindSize(int px)
{
    if (px % 4 == 0)
        return QString::number(px / 4);
    if (px % 2 != 0)
        return u'[' + QString::number(px) + u"px]"_s;
    return QString::number(px / 4) + u".5"_s;
}

// Integral values without a fraction, others as "%g" does in the C locale.
QString SnippetBuilder::number(double value)
{
    if (std::isfinite(value) && value == std::trunc(value) && std::abs(value) < 1e18)
        return QString::number(static_cast<qint64>(value));
    char buffer[32];
    const auto end =
        std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::general, 6)
            .ptr;
    return QString::fromLatin1(buffer, end - buffer);
}

// Keeps letters, marks and numbers of every script, as the platform URL
// encoders do, and the characters that need no escaping in a data URI;
// everything else becomes %XX per UTF-8 byte. Text with a lone surrogate
// has no UTF-8 form: nullopt.
std::optional<QString> SnippetBuilder::percentEncoded(QStringView text)
{
    static constexpr QStringView kept = u"-._~ !*'()/:;=,@$";
    static constexpr char hex[] = "0123456789ABCDEF";
    QString out;
    out.reserve(text.size() + text.size() / 2);
    for (qsizetype i = 0; i < text.size();) {
        const QChar c = text[i];
        qsizetype length = 1;
        char32_t code = c.unicode();
        if (c.isSurrogate()) {
            if (!c.isHighSurrogate() || i + 1 >= text.size() || !text[i + 1].isLowSurrogate())
                return std::nullopt;
            code = QChar::surrogateToUcs4(c, text[i + 1]);
            length = 2;
        }
        const QStringView character = text.sliced(i, length);
        if (QChar::isLetterOrNumber(code) || QChar::isMark(code) || kept.contains(c)) {
            out += character;
        } else {
            for (const char byte : character.toUtf8()) {
                const auto b = static_cast<unsigned char>(byte);
                out += u'%';
                out += QLatin1Char(hex[b >> 4]);
                out += QLatin1Char(hex[b & 0xF]);
            }
        }
        i += length;
    }
    return out;
}
