#include "Catalog/IconUpdater.h"
#include "Commands.h"

#include <QCommandLineParser>
#include <QEventLoop>

namespace Cli {

// One update check in the foreground, printing each state's line as it comes.
int update(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    int status = Status::ok;
    if (!parse(parser, "update", args, io, &status))
        return status;
    if (!parser.positionalArguments().isEmpty())
        return usageError(io, QStringLiteral("update takes no arguments"));

    IconUpdater& updater = IconUpdater::shared();
    QEventLoop loop;
    QObject::connect(&updater, &IconUpdater::stateChanged, &loop, [&] {
        if (const QString text = updater.statusText(); !text.isEmpty()) {
            io.out << text << '\n';
            io.out.flush();
        }
        if (!updater.isBusy())
            loop.quit();
    });
    updater.checkForNewIcons();
    if (updater.isBusy())
        loop.exec();
    return updater.state().kind == IconUpdater::State::Kind::failed ? Status::failure : Status::ok;
}

} // namespace Cli
