#include "Catalog/IconLibrary.h"
#include "Commands.h"

#include <QCommandLineParser>

namespace Cli {

int info(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    int status = Status::ok;
    if (!parse(parser, "info", args, io, &status))
        return status;
    if (!parser.positionalArguments().isEmpty())
        return usageError(io, QStringLiteral("info takes no arguments"));

    const IconLibrary& library = IconLibrary::shared();
    const bool shipped = library.loadedPath() == library.sources().shippedPath;
    io.out << "version: " << library.version() << '\n'
           << "icons: " << library.iconCount() << '\n'
           << "outline: " << library.outlineCount() << '\n'
           << "filled: " << library.filledCount() << '\n'
           << "categories: " << library.categories().size() << '\n'
           << "source: "
           << (library.loadedPath().isEmpty() ? QStringLiteral("none")
               : shipped                      ? QStringLiteral("shipped")
                         : QStringLiteral("downloaded ") + library.loadedPath())
           << '\n';
    return Status::ok;
}

int search(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("style"), QString(), QStringLiteral("outline|filled")});
    int status = Status::ok;
    if (!parse(parser, "search", args, io, &status))
        return status;
    const auto style = fromRawValue<IconStyle>(parser.value(QStringLiteral("style")));
    if (parser.isSet(QStringLiteral("style")) && !style)
        return usageError(io, QStringLiteral("--style takes outline or filled"));

    const IconLibrary& library = IconLibrary::shared();
    IconList icons = library.icons();
    // The picker shows only icons that have the chosen style.
    if (style == IconStyle::filled)
        icons.removeIf([](const Icon& icon) { return !icon.has(IconStyle::filled); });
    for (const Icon& icon : library.search(joinedQuery(parser.positionalArguments()), icons))
        io.out << icon.id() << '\n';
    return Status::ok;
}

int near(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    parser.addOption(
        {QStringLiteral("limit"), QString(), QStringLiteral("N"), QStringLiteral("5")});
    int status = Status::ok;
    if (!parse(parser, "near", args, io, &status))
        return status;
    bool valid = false;
    const int limit = parser.value(QStringLiteral("limit")).toInt(&valid);
    if (!valid || limit < 0)
        return usageError(io, QStringLiteral("--limit takes a whole number of 0 or more"));

    const auto matches =
        IconLibrary::shared().nearMatches(joinedQuery(parser.positionalArguments()), limit);
    io.out << "words: " << matches.words.join(QStringLiteral(", ")) << '\n';
    for (const Icon& icon : matches.icons)
        io.out << icon.id() << '\n';
    return Status::ok;
}

} // namespace Cli
