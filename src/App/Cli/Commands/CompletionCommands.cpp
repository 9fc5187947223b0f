#include "App/Cli/Completion.h"
#include "App/Cli/ManPage.h"
#include "Catalog/IconLibrary.h"
#include "Commands.h"
#include "State/UserLibrary.h"

namespace Cli {
namespace {

QStringList iconNamesStartingWith(const QString& prefix)
{
    QStringList names = IconLibrary::iconNames(IconLibrary::defaultSources());
    names.removeIf([&](const QString& name) { return !name.startsWith(prefix); });
    names.removeDuplicates();
    return names;
}

} // namespace

int completions(const QStringList& args, Io& io)
{
    const std::optional<Shell> shell = args.size() == 1 ? shellNamed(args[0]) : std::nullopt;
    if (!shell)
        return usageError(io, QStringLiteral("completions takes bash, zsh or fish"));
    io.out << completionScript(*shell);
    return Status::ok;
}

// `complete SHELL WORD...`: the words after "pictray", taken as they are.
int complete(const QStringList& args, Io& io)
{
    const std::optional<Shell> shell = shellNamed(args.value(0));
    if (!shell)
        return usageError(io, QStringLiteral("complete takes bash, zsh or fish and the words"));
    QStringList words = args.mid(1);
    if (words.isEmpty())
        words.append(QString());
    const CompletionSources sources{
        .iconNames = iconNamesStartingWith,
        .favorites = [] { return UserLibrary::shared().favorites(); },
        .categories = [] { return IconLibrary::shared().categories(); },
    };
    io.out << completionOutput(completionsFor(words, sources), *shell);
    return Status::ok;
}

int manpage(const QStringList& args, Io& io)
{
    if (!args.isEmpty())
        return usageError(io, QStringLiteral("manpage takes no arguments"));
    io.out << manPage(QStringLiteral(PICTRAY_VERSION));
    return Status::ok;
}

} // namespace Cli
