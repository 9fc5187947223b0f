#include "Catalog/CatalogueCodec.h"
#include "Catalog/IconLibrary.h"
#include "Catalog/PackageConverter.h"
#include "Commands.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace Cli {
namespace {

std::optional<QByteArray> readFile(const QString& path, Io& io)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        io.err << "pictray: cannot read " << path << ": " << file.errorString() << '\n';
        return std::nullopt;
    }
    return file.readAll();
}

} // namespace

// `catalogue build`: an unpacked @tabler/icons package into a catalogue file.
int catalogue(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("from"), QString(), QStringLiteral("DIR")});
    parser.addOption({QStringLiteral("version"), QString(), QStringLiteral("V")});
    parser.addOption(
        {{QStringLiteral("o"), QStringLiteral("output")}, QString(), QStringLiteral("FILE")});
    int status = Status::ok;
    if (!parse(parser, "catalogue", args, io, &status))
        return status;
    if (parser.positionalArguments() != QStringList{QStringLiteral("build")})
        return usageError(io, QStringLiteral("catalogue takes the subcommand build"));
    if (!parser.isSet(QStringLiteral("from")) || !parser.isSet(QStringLiteral("o")))
        return usageError(io, QStringLiteral("catalogue build needs --from DIR and -o FILE"));

    const QDir from(parser.value(QStringLiteral("from")));
    const auto iconsJson = readFile(from.filePath(QStringLiteral("icons.json")), io);
    const auto outline = readFile(from.filePath(QStringLiteral("tabler-nodes-outline.json")), io);
    const auto filled = readFile(from.filePath(QStringLiteral("tabler-nodes-filled.json")), io);
    if (!iconsJson || !outline || !filled)
        return Status::failure;

    QString version = parser.value(QStringLiteral("version"));
    if (version.isEmpty()) {
        const auto package = readFile(from.filePath(QStringLiteral("package.json")), io);
        if (!package)
            return Status::failure;
        version =
            QJsonDocument::fromJson(*package).object().value(QLatin1String("version")).toString();
        if (version.isEmpty()) {
            io.err << "pictray: package.json has no version; give one with --version\n";
            return Status::failure;
        }
    }

    QString error;
    const auto bytes = PackageConverter::convert(version, *iconsJson, *outline, *filled, &error);
    const auto check = bytes ? CatalogueCodec::decode(*bytes, &error) : std::nullopt;
    if (!check) {
        io.err << "pictray: cannot build the catalogue: " << error << '\n';
        return Status::failure;
    }

    QSaveFile out(parser.value(QStringLiteral("o")));
    if (!out.open(QIODevice::WriteOnly) || out.write(*bytes) != bytes->size() || !out.commit()) {
        io.err << "pictray: cannot write " << out.fileName() << ": " << out.errorString() << '\n';
        return Status::failure;
    }
    const auto filledCount =
        std::count_if(check->icons.cbegin(), check->icons.cend(),
                      [](const Icon& icon) { return icon.has(IconStyle::filled); });
    io.out << "Wrote " << IconLibrary::number(check->icons.size()) << " icons ("
           << IconLibrary::number(filledCount) << " filled) of Tabler Icons " << version << " to "
           << out.fileName() << '\n';
    return Status::ok;
}

} // namespace Cli
