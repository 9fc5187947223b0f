#include "Commands.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"

#include <QFile>

namespace Cli {
namespace {

// Whether the last change reached the settings file; says why not when it did not.
bool saved(Io& io)
{
    if (const auto error = Preferences::shared().store().writeError()) {
        io.err << "pictray: " << *error << '\n';
        return false;
    }
    return true;
}

// Every name must be an icon of the catalogue, except that a favorite the
// catalogue no longer has can still be removed.
bool checkNames(const QStringList& names, bool removing, Io& io)
{
    const UserLibrary& library = UserLibrary::shared();
    for (const QString& name : names) {
        if (!library.iconExists(name) && !(removing && library.isFavorite(name))) {
            io.err << "pictray: there is no icon named '" << name << "'\n";
            return false;
        }
    }
    return true;
}

int exportTo(const QString& path, Io& io)
{
    const QByteArray data = UserLibrary::shared().exportFavorites();
    return writeOutput(data, path == u"-" ? QString() : path, io) ? Status::ok : Status::failure;
}

std::optional<QByteArray> readStandardInput(QString* error)
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read standard input");
        return std::nullopt;
    }
    const QByteArray data = input.read(UserLibrary::maxImportBytes + 1);
    if (data.size() > UserLibrary::maxImportBytes) {
        *error = UserLibrary::tooLargeMessage();
        return std::nullopt;
    }
    return data;
}

int importFrom(const QString& path, Io& io)
{
    QString error;
    const std::optional<QByteArray> data =
        path == u"-" ? readStandardInput(&error) : UserLibrary::readImportFile(path, &error);
    if (!data) {
        io.err << "pictray: " << error << '\n';
        return Status::failure;
    }
    const std::optional<int> added = UserLibrary::shared().importFavorites(*data);
    if (!added) {
        io.err << "pictray: " << UserLibrary::notAnExportMessage() << '\n';
        return Status::failure;
    }
    if (!saved(io))
        return Status::failure;
    io.out << UserLibrary::importedMessage(*added) << '\n';
    return Status::ok;
}

} // namespace

int favorites(const QStringList& args, Io& io)
{
    const QString action = args.value(0, QStringLiteral("list"));
    const QStringList operands = args.mid(1);
    UserLibrary& library = UserLibrary::shared();

    if (action == u"list" && operands.isEmpty()) {
        for (const QString& name : library.favorites())
            io.out << name << '\n';
        return Status::ok;
    }
    if ((action == u"add" || action == u"remove") && !operands.isEmpty()) {
        const bool adding = action == u"add";
        if (!checkNames(operands, !adding, io))
            return Status::failure;
        library.setFavorite(operands, adding);
        return saved(io) ? Status::ok : Status::failure;
    }
    if (action == u"export" && operands.size() == 1)
        return exportTo(operands[0], io);
    if (action == u"import" && operands.size() == 1)
        return importFrom(operands[0], io);
    return usageError(io, QStringLiteral("favorites takes list, add NAME..., remove NAME..., "
                                         "export FILE or import FILE"));
}

int recents(const QStringList& args, Io& io)
{
    if (!args.isEmpty())
        return usageError(io, QStringLiteral("recents takes no arguments"));
    for (const QString& name : UserLibrary::shared().recents())
        io.out << name << '\n';
    return Status::ok;
}

} // namespace Cli
