#include "Base/HexColor.h"
#include "Catalog/IconLibrary.h"
#include "Commands.h"
#include "Export/IconExport.h"
#include "Export/SnippetBuilder.h"
#include "State/AtomicFile.h"
#include "State/PreferenceRanges.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"

#include <QCommandLineParser>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <cstring>

namespace Cli {
namespace {

// --set KEY=VALUE changes this run only: the user's settings are copied
// aside, the values written into the copy as a hand-edited settings file
// would hold them, and read back through the usual fallback rules.
class RunSettings {
public:
    bool open(const QStringList& assignments, Io& io, int* status)
    {
        if (!m_dir.isValid()) {
            io.err << "pictray: cannot create a temporary folder\n";
            *status = Status::failure;
            return false;
        }
        const QString path = m_dir.filePath(QStringLiteral("Pictray.conf"));
        QFile::copy(SettingsStore::defaultPath(), path);
        m_store = std::make_unique<SettingsStore>(path);
        for (const QString& assignment : assignments) {
            const qsizetype equals = assignment.indexOf(u'=');
            const QString key = assignment.left(equals);
            if (equals < 0 || !Preferences::hasKey(key)) {
                *status = usageError(io, QStringLiteral("--set takes KEY=VALUE with a settings key "
                                                        "(see pictray prefs list), not '%1'")
                                             .arg(assignment));
                return false;
            }
            m_store->setString(key, assignment.mid(equals + 1));
        }
        m_preferences = std::make_unique<Preferences>(*m_store);
        return true;
    }
    const Preferences& preferences() const { return *m_preferences; }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<SettingsStore> m_store;
    std::unique_ptr<Preferences> m_preferences;
};

int unknownIcon(const QString& name, Io& io)
{
    io.err << "pictray: there is no icon named '" << name << "'";
    const IconList close = IconLibrary::shared().suggestions(QString(name).replace(u'-', u' '), 5);
    if (!close.isEmpty()) {
        QStringList names;
        for (const Icon& icon : close)
            names.append(icon.id());
        io.err << "; close names: " << names.join(QStringLiteral(", "));
    }
    io.err << '\n';
    return Status::failure;
}

} // namespace

bool writeOutput(const QByteArray& bytes, const QString& path, Io& io)
{
    if (path.isEmpty()) {
        io.out.flush();
        if (std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), io.stdoutFile) ==
                static_cast<size_t>(bytes.size()) &&
            std::fflush(io.stdoutFile) == 0)
            return true;
        io.err << "pictray: cannot write standard output: "
               << QString::fromLocal8Bit(std::strerror(errno)) << '\n';
        return false;
    }
    if (const auto error = writeFileAtomically(path, bytes)) {
        io.err << "pictray: " << *error << '\n';
        return false;
    }
    return true;
}

int exportIcon(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("format"), QString(), QStringLiteral("F")},
        {QStringLiteral("style"), QString(), QStringLiteral("outline|filled")},
        {QStringLiteral("size"), QString(), QStringLiteral("N")},
        {QStringLiteral("stroke"), QString(), QStringLiteral("X")},
        {QStringLiteral("color"), QString(), QStringLiteral("C")},
        {QStringLiteral("set"), QString(), QStringLiteral("KEY=VALUE")},
        {{QStringLiteral("o"), QStringLiteral("output")}, QString(), QStringLiteral("FILE")},
    });
    int status = Status::ok;
    if (!parse(parser, "export", args, io, &status))
        return status;
    if (parser.positionalArguments().size() != 1)
        return usageError(io, QStringLiteral("export takes one icon name"));

    RunSettings settings;
    if (!settings.open(parser.values(QStringLiteral("set")), io, &status))
        return status;
    const Preferences& preferences = settings.preferences();

    std::optional<ExportFormat> format = preferences.defaultFormat();
    if (parser.isSet(QStringLiteral("format")))
        format = fromRawValue<ExportFormat>(parser.value(QStringLiteral("format")));
    if (!format)
        return usageError(io,
                          QStringLiteral("--format takes one of svg, jsx, vue, blade, tailwind, "
                                         "dataURI, png1, png2, png3"));
    std::optional<IconStyle> style = preferences.defaultStyle();
    if (parser.isSet(QStringLiteral("style")))
        style = fromRawValue<IconStyle>(parser.value(QStringLiteral("style")));
    if (!style)
        return usageError(io, QStringLiteral("--style takes outline or filled"));
    using PreferenceRanges::iconSize;
    const auto size = parser.isSet(QStringLiteral("size"))
                          ? SettingsStore::parseInt(parser.value(QStringLiteral("size")))
                          : std::optional(preferences.defaultSize());
    if (!size || !iconSize.contains(double(*size)))
        return usageError(io, QStringLiteral("--size takes a whole number from %1 to %2")
                                  .arg(iconSize.min)
                                  .arg(iconSize.max));
    double stroke = preferences.defaultStroke();
    if (parser.isSet(QStringLiteral("stroke"))) {
        const auto parsed = SettingsStore::parseDouble(parser.value(QStringLiteral("stroke")));
        if (!parsed || !PreferenceRanges::stroke.contains(*parsed))
            return usageError(io, QStringLiteral("--stroke takes a number from %1 to %2")
                                      .arg(PreferenceRanges::stroke.min)
                                      .arg(PreferenceRanges::stroke.max));
        stroke = *parsed;
    }

    const QString name = parser.positionalArguments().constFirst();
    const Icon icon = IconLibrary::shared().icon(name);
    if (icon.isNull())
        return unknownIcon(name, io);

    IconExport item;
    item.icon = icon;
    // Like a copy with the defaults: a filled request for an icon without a
    // filled form is an outline export.
    item.style = icon.has(*style) ? *style : IconStyle::outline;
    item.size = static_cast<int>(*size);
    item.stroke = stroke;
    item.color = parser.isSet(QStringLiteral("color")) ? parser.value(QStringLiteral("color"))
                                                       : preferences.defaultColor();
    if (!HexColor::isColorValue(item.color))
        return usageError(io, QStringLiteral("--color takes currentColor or a hexadecimal colour "
                                             "such as #ff0000"));

    const QString output = parser.value(QStringLiteral("o"));
    if (Formats::isImage(*format))
        return exportPNG(item, *format, preferences, output, io);
    const QByteArray bytes = SnippetBuilder::current(preferences).text(*format, item).toUtf8();
    return writeOutput(bytes, output, io) ? Status::ok : Status::failure;
}

} // namespace Cli
