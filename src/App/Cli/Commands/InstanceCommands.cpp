#include "App/Instance/SingleInstance.h"
#include "Commands.h"

#include <QCommandLineParser>

namespace Cli {
namespace {

// Hands the request to the running tray instance and reports its answer.
int sendToInstance(const InstanceRequest& request, Io& io)
{
    QString problem;
    const auto serverName = SingleInstance::defaultServerName(&problem);
    if (!serverName) {
        io.err << "pictray: " << problem << '\n';
        return Status::failure;
    }
    InstanceReply reply;
    switch (SingleInstance::send(*serverName, request, &reply)) {
    case SingleInstance::SendResult::notOurs:
        io.err << "pictray: another user's program listens on " << *serverName
               << "; nothing was sent.\n";
        return Status::failure;
    case SingleInstance::SendResult::notRunning:
        io.err << "Pictray is not running. Start it with `pictray`.\n";
        return Status::failure;
    case SingleInstance::SendResult::noAnswer:
        io.err << "Pictray did not answer.\n";
        return Status::failure;
    case SingleInstance::SendResult::answered:
        break;
    }
    if (!reply.ok) {
        io.err << reply.message << '\n';
        return Status::failure;
    }
    return Status::ok;
}

int noArguments(const char* command, const QStringList& args, const InstanceRequest& request,
                Io& io)
{
    QCommandLineParser parser;
    int status = Status::ok;
    if (!parse(parser, command, args, io, &status))
        return status;
    if (!parser.positionalArguments().isEmpty())
        return usageError(io, QStringLiteral("%1 takes no arguments").arg(QLatin1String(command)));
    return sendToInstance(request, io);
}

} // namespace

int toggle(const QStringList& args, Io& io)
{
    return noArguments("toggle", args, {InstanceRequest::Kind::toggle, std::nullopt}, io);
}

int copyLast(const QStringList& args, Io& io)
{
    return noArguments("copy-last", args, {InstanceRequest::Kind::copyLast, std::nullopt}, io);
}

int show(const QStringList& args, Io& io)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("tab"), QString(), QStringLiteral("favorites|recents|all")});
    int status = Status::ok;
    if (!parse(parser, "show", args, io, &status))
        return status;
    if (!parser.positionalArguments().isEmpty())
        return usageError(io, QStringLiteral("show takes no arguments besides --tab"));
    InstanceRequest request{InstanceRequest::Kind::show, std::nullopt};
    if (parser.isSet(QStringLiteral("tab"))) {
        const QString name = parser.value(QStringLiteral("tab"));
        request.tab = InstanceRequest::tabNamed(name);
        if (!request.tab)
            return usageError(
                io, QStringLiteral("unknown tab '%1': use favorites, recents or all").arg(name));
    }
    return sendToInstance(request, io);
}

} // namespace Cli
