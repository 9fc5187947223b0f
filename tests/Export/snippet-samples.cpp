// Writes every text snippet for a few icons shaped like the real set, under
// every option that changes the format, into the directory given as argument,
// with a manifest.json that check-snippets.mjs reads to run the real tools.

#include "Export/SnippetBuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

QList<Icon> sampleIcons()
{
    // A pie slice the icon set fills without outline, and a half-tone path.
    PathPaints piePaints(3);
    piePaints[0].add("fill", "currentColor");
    piePaints[0].add("stroke", "none");
    piePaints[2].add("opacity", ".5");
    return {
        Icon(u"percentage-25"_s, {}, {},
             PathList{"M21 12a9 9 0 0 0 -9 -9m0 0v9h9", "M3 12a9 9 0 1 0 18 0a9 9 0 0 0 -18 0",
                      "M4 4h2"},
             std::nullopt, {piePaints, {}}),
        Icon(u"plus"_s, {}, {}, PathList{"M12 5l0 14", "M5 12l14 0"}, std::nullopt),
        Icon(u"home"_s, {}, {}, PathList{"M5 12l-2 0l9 -9l9 9l-2 0", "M9 21v-6a2 2 0 0 1 4 0v6"},
             PathList{"M12.707 2.293l9 9c.63 .63 .184 1.707 -.707 1.707h-1v6a3 3 0 0 1 -3 3"}),
        // A name that starts with a digit.
        Icon(u"2fa"_s, {}, {},
             PathList{"M7 16h-4l3.47 -4.66a2 2 0 1 0 -3.47 -1.54", "M10 16v-8h4", "M10 12l3 0",
                      "M17 16v-6a2 2 0 0 1 4 0v6", "M17 13l4 0"},
             std::nullopt),
        // A relative first move keeps the paths apart even when optimized.
        Icon(u"hexagon-letter-a"_s, {}, {},
             PathList{"M19.875 6.27a2.225 2.225 0 0 1 1.125 1.948v7.284l-6.75 4.27h-.033z",
                      "M10 16v-6a2 2 0 1 1 4 0v6", "m10 13h4"},
             PathList{"M13.666 1.429l6.75 3.98l.096 .063a3.22 3.22 0 0 1 1.284 2.39z"}),
    };
}

struct Look {
    int size;
    double stroke;
    QString color;
};

QList<Look> looks()
{
    return {
        {24, 2, u"currentColor"_s},
        {18, 1.5, u"#ff0000"_s},
        {17, 1.25, u"rgb(255 0 0 / 50%)"_s},
    };
}

// Every icon in each of its styles, each with one look in turn. The looks
// only change values; every option combination for every look would make the
// compilers run several times longer.
QList<IconExport> sampleExports()
{
    const QList<Look> lookList = looks();
    QList<IconExport> exports;
    for (const Icon& icon : sampleIcons()) {
        for (const IconStyle style : allCases<IconStyle>()) {
            if (icon.has(style)) {
                const Look& look = lookList[exports.size() % lookList.size()];
                exports.append({icon, style, look.size, look.stroke, look.color});
            }
        }
    }
    return exports;
}

// One option and the values tried for it; each value has a short tag for
// the file name.
struct Option {
    QString name;
    QList<std::pair<QString, std::function<void(SnippetBuilder&)>>> values;
};

Option flag(const QString& name, bool SnippetBuilder::*field)
{
    return {name,
            {{u"0"_s, [field](SnippetBuilder& b) { b.*field = false; }},
             {u"1"_s, [field](SnippetBuilder& b) { b.*field = true; }}}};
}

Option text(const QString& name, QString SnippetBuilder::*field, const QStringList& values)
{
    Option option{name, {}};
    for (qsizetype i = 0; i < values.size(); ++i) {
        option.values.append({QString::number(i),
                              [field, value = values[i]](SnippetBuilder& b) { b.*field = value; }});
    }
    return option;
}

// The options each format depends on. The data URI also gets the ones it
// must ignore, so the checker can see that they change nothing.
QList<Option> optionsOf(ExportFormat format)
{
    const Option optimize = flag(u"opt"_s, &SnippetBuilder::optimize);
    const Option size = flag(u"size"_s, &SnippetBuilder::includeSize);
    const Option aria = flag(u"aria"_s, &SnippetBuilder::ariaHidden);
    const Option classes = text(u"class"_s, &SnippetBuilder::classAttribute,
                                {QString(), u"icon icon-tabler"_s, u"icon icon-tabler-{name}"_s});
    switch (format) {
    case ExportFormat::svg:
        return {optimize, size, aria, classes};
    case ExportFormat::jsx:
        return {optimize,
                size,
                aria,
                text(u"class"_s, &SnippetBuilder::classAttribute, {QString(), u"i-{name}"_s}),
                text(u"name"_s, &SnippetBuilder::reactName, {u"Icon{Name}"_s, u"{Name}"_s}),
                {u"lang"_s,
                 {{u"jsx"_s, [](SnippetBuilder& b) { b.reactLanguage = ReactLanguage::jsx; }},
                  {u"tsx"_s, [](SnippetBuilder& b) { b.reactLanguage = ReactLanguage::tsx; }}}}};
    case ExportFormat::vue:
        return {
            optimize,
            size,
            aria,
            text(u"class"_s, &SnippetBuilder::classAttribute, {QString(), u"i-{name}"_s}),
            {u"style"_s,
             {{u"sfc"_s, [](SnippetBuilder& b) { b.vueStyle = VueStyle::sfc; }},
              {u"template"_s, [](SnippetBuilder& b) { b.vueStyle = VueStyle::templateOnly; }}}}};
    case ExportFormat::blade:
        return {aria, text(u"prefix"_s, &SnippetBuilder::bladePrefix, {QString(), u"x-icon-"_s})};
    case ExportFormat::tailwind:
        return {optimize, aria, flag(u"current"_s, &SnippetBuilder::tailwindCurrentColor)};
    case ExportFormat::dataURI:
        return {size, aria, classes};
    default:
        return {};
    }
}

// Every combination of the options' values: the builder and its file tag.
QList<std::pair<SnippetBuilder, QString>> combinations(const QList<Option>& options)
{
    QList<std::pair<SnippetBuilder, QString>> result{{SnippetBuilder(), QString()}};
    for (const Option& option : options) {
        QList<std::pair<SnippetBuilder, QString>> next;
        for (const auto& [builder, tag] : std::as_const(result)) {
            for (const auto& [valueTag, apply] : option.values) {
                SnippetBuilder changed = builder;
                apply(changed);
                next.append({changed, tag + u'_' + option.name + valueTag});
            }
        }
        result = next;
    }
    return result;
}

QString extension(ExportFormat format, const SnippetBuilder& builder)
{
    switch (format) {
    case ExportFormat::jsx:
        return builder.reactLanguage == ReactLanguage::tsx ? u"tsx"_s : u"jsx"_s;
    case ExportFormat::vue:
        return u"vue"_s;
    case ExportFormat::blade:
        return u"blade.php"_s;
    case ExportFormat::dataURI:
        return u"txt"_s;
    default:
        return u"svg"_s;
    }
}

// What the checker does with a file of this extension.
QString kind(const QString& extension)
{
    if (extension == u"txt"_s)
        return u"dataURI"_s;
    return extension == u"svg"_s || extension == u"blade.php"_s ? u"xml"_s : extension;
}

bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: snippet-samples DIRECTORY\n");
        return 2;
    }
    const QDir dir(arguments[1]);
    if (!dir.mkpath(u"."_s)) {
        std::fprintf(stderr, "cannot create %s\n", qPrintable(dir.path()));
        return 1;
    }

    QJsonArray manifest;
    for (const IconExport& item : sampleExports()) {
        for (const ExportFormat format : Formats::codeFormats()) {
            for (const auto& [builder, tag] : combinations(optionsOf(format))) {
                const QString ext = extension(format, builder);
                const QString file =
                    u"%1_%2%3.%4"_s.arg(item.packageName(), rawValue(format), tag, ext);
                if (!write(dir.filePath(file), builder.text(format, item).toUtf8()))
                    return 1;
                QJsonObject entry{{u"file"_s, file}, {u"kind"_s, kind(ext)}};
                if (format == ExportFormat::dataURI) {
                    // What the URI must decode to: the one-line SVG with its
                    // size and without class or aria-hidden.
                    SnippetBuilder oneLine;
                    oneLine.classAttribute.clear();
                    entry.insert(u"svg"_s, oneLine.text(ExportFormat::svg, item));
                }
                manifest.append(entry);
            }
        }
    }
    if (!write(dir.filePath(u"manifest.json"_s), QJsonDocument(manifest).toJson()))
        return 1;
    std::printf("%lld samples in %s\n", static_cast<long long>(manifest.size()),
                qPrintable(dir.path()));
    return 0;
}
