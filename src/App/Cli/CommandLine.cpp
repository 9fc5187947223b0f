#include "CommandLine.h"

#include "App/Cli/CommandTable.h"

#include <QCommandLineParser>

namespace Cli {

QString usageText()
{
    QString text = QStringLiteral("Usage: pictray [COMMAND]\n"
                                  "Without a command, Pictray starts in the tray.\n\n"
                                  "Commands:\n");
    for (const CommandSpec& command : commandTable()) {
        if (!command.hidden)
            text += QStringLiteral("  pictray %1\n").arg(synopsis(command));
    }
    text += QStringLiteral("  pictray --help | --version\n");
    return text;
}

int usageError(Io& io, const QString& message)
{
    io.err << "pictray: " << message << "\n\n" << usageText();
    io.err.flush();
    return Status::usage;
}

bool parse(QCommandLineParser& parser, const char* command, const QStringList& args, Io& io,
           int* status)
{
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    if (parser.parse(QStringList{QStringLiteral("pictray ") + QLatin1String(command)} + args))
        return true;
    *status = usageError(io, parser.errorText());
    return false;
}

int run(const QStringList& args, Io& io)
{
    if (args.size() < 2) {
        io.out << usageText();
        return Status::ok;
    }
    const QString& name = args.at(1);
    if (name == u"--help" || name == u"-h" || name == u"help") {
        io.out << usageText();
        return Status::ok;
    }
    if (name == u"--version" || name == u"-v") {
        io.out << "pictray " PICTRAY_VERSION "\n";
        return Status::ok;
    }
    if (const CommandSpec* command = findCommand(name))
        return command->run(args.mid(2), io);
    return usageError(io, name.startsWith(u'-') ? QStringLiteral("unknown option '%1'").arg(name)
                                                : QStringLiteral("unknown command '%1'").arg(name));
}

} // namespace Cli
