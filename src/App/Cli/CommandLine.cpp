#include "CommandLine.h"

#include "App/Cli/Commands/Commands.h"

#include <QCommandLineParser>
#include <array>

namespace Cli {
namespace {

constexpr std::array commands{
    Command{"info", "info", info},
    Command{"search",
            "search [--style outline|filled] [--in all|favorites|recents|category:NAME] QUERY...",
            search},
    Command{"near", "near [--limit N] QUERY...", near},
    Command{"catalogue", "catalogue build --from DIR [--version V] -o FILE", catalogue},
    Command{"update", "update", update},
    Command{"prefs", "prefs [list | get KEY | set KEY VALUE | reset KEY]", prefs},
    Command{"favorites",
            "favorites [list | add NAME... | remove NAME... | export FILE | import FILE]",
            favorites},
    Command{"recents", "recents", recents},
    Command{"export",
            "export NAME [--format F] [--style outline|filled] [--size N] [--stroke X] "
            "[--color C] [--set KEY=VALUE]... [-o FILE]",
            exportIcon},
    Command{"toggle", "toggle", toggle},
    Command{"show", "show [--tab favorites|recents|all]", show},
    Command{"copy-last", "copy-last", copyLast},
};

} // namespace

QString usageText()
{
    QString text = QStringLiteral("Usage: pictray [COMMAND]\n"
                                  "Without a command, Pictray starts in the tray.\n\n"
                                  "Commands:\n");
    for (const Command& command : commands)
        text += QStringLiteral("  pictray %1\n").arg(QLatin1String(command.synopsis));
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
    for (const Command& command : commands) {
        if (name == QLatin1String(command.name))
            return command.run(args.mid(2), io);
    }
    return usageError(io, name.startsWith(u'-') ? QStringLiteral("unknown option '%1'").arg(name)
                                                : QStringLiteral("unknown command '%1'").arg(name));
}

} // namespace Cli
