#include "Catalog/IconLibrary.h"
#include "Commands.h"
#include "Picker/PickerModel.h"
#include "State/Preferences.h"
#include "State/UserLibrary.h"

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
    if (!library.loadProblem().isEmpty())
        io.out << "problem: " << library.loadProblem() << '\n';
    return Status::ok;
}

namespace {

std::optional<PickerTab> tabNamed(const QString& text)
{
    if (text == u"all")
        return PickerTab::all();
    if (text == u"favorites")
        return PickerTab::favorites();
    if (text == u"recents")
        return PickerTab::recents();
    if (text.startsWith(u"category:"))
        return PickerTab::ofCategory(text.sliced(9));
    return std::nullopt;
}

} // namespace

// Lists exactly what the picker would: its tab's icons, its style filter, its ranking.
int search(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("style"), QString(), QStringLiteral("outline|filled")});
    parser.addOption({QStringLiteral("in"), QString(),
                      QStringLiteral("all|favorites|recents|category:NAME"),
                      QStringLiteral("all")});
    int status = Status::ok;
    if (!parse(parser, "search", args, io, &status))
        return status;
    const auto style = fromRawValue<IconStyle>(parser.value(QStringLiteral("style")));
    if (parser.isSet(QStringLiteral("style")) && !style)
        return usageError(io, QStringLiteral("--style takes outline or filled"));
    const auto tab = tabNamed(parser.value(QStringLiteral("in")));
    if (!tab)
        return usageError(io,
                          QStringLiteral("--in takes all, favorites, recents or category:NAME"));

    PickerModel picker(IconLibrary::shared(), UserLibrary::shared(), Preferences::shared(),
                       nullptr);
    picker.setTab(*tab);
    picker.setStyle(style.value_or(IconStyle::outline));
    picker.setQuery(joinedQuery(parser.positionalArguments()));
    for (const Icon& icon : picker.results())
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

    const QString query = joinedQuery(parser.positionalArguments());
    const IconLibrary& library = IconLibrary::shared();
    io.out << "words: " << library.nearMatches(query, limit).words.join(QStringLiteral(", "))
           << '\n';
    for (const Icon& icon : library.suggestions(query, limit))
        io.out << icon.id() << '\n';
    return Status::ok;
}

} // namespace Cli
