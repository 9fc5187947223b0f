#include "ManPage.h"

#include "App/Cli/CommandTable.h"

namespace Cli {
namespace {

// Text as roff shows it literally: backslashes and minus signs escaped, and a
// line never read as a request.
QString roff(const QString& text)
{
    QString escaped = text;
    escaped.replace(u'\\', QStringLiteral("\\e")).replace(u'-', QStringLiteral("\\-"));
    if (escaped.startsWith(u'.') || escaped.startsWith(u'\''))
        escaped.prepend(QStringLiteral("\\&"));
    return escaped;
}

QString roff(const char* text)
{
    return roff(QString::fromUtf8(text));
}

void appendOptions(QString& page, const std::vector<OptionSpec>& options)
{
    if (options.empty())
        return;
    page += QStringLiteral(".RS\n");
    for (const OptionSpec& option : options) {
        const QString value = optionValueName(option);
        page += QStringLiteral(".TP\n\\fB%1\\fR%2\n%3\n")
                    .arg(roff(optionNames(option)),
                         value.isEmpty()
                             ? QString()
                             : QStringLiteral(" \\fI") + roff(value) + QStringLiteral("\\fR"),
                         roff(option.description));
    }
    page += QStringLiteral(".RE\n");
}

constexpr const char* name = R"(.SH NAME
pictray \- the Tabler icon set a keystroke away
)";

constexpr const char* description = R"(.SH DESCRIPTION
Without a command, \fBpictray\fR starts Pictray in the tray: a global shortcut
(Ctrl+Alt+I unless changed) opens a floating picker where you search the Tabler
icons by name or tag and copy or drag one into any application as SVG, a
component, a data URI or PNG; Ctrl+Alt+C copies the last icon again.
Only one Pictray runs per user: starting it again opens the running one's
settings.
.PP
With a command, \fBpictray\fR works from the terminal and never opens a window.
)";

constexpr const char* footer = R"(.SH EXIT STATUS
0 on success, 1 when the command failed (an unknown icon, a failed update, a
file that cannot be read or written), 2 for a usage error, with the usage on
standard error.
.SH ENVIRONMENT
.TP
.B PICTRAY_TRACE_STARTUP
Set to 1, the tray program prints how long each start\-up step took, and how
long the picker takes to the next frame.
.TP
.B PICTRAY_LATEST_URL
An address answering {"version": ...} with the newest icon set release,
instead of the built\-in one.
.TP
.B PICTRAY_CDN_URL
The base address of the icon set's release files, instead of the built\-in one.
.TP
.B QT_QUICK_BACKEND
Set to rhi, the picker draws with the GPU instead of the software renderer.
.SH FILES
.TP
.I $XDG_CONFIG_HOME/Pictray/Pictray.conf
Settings, favorites, recents and the last copy.
.TP
.I $XDG_DATA_HOME/Pictray/tabler\-icons.json
A downloaded newer icon set, used while its version is higher than the shipped
one.
.TP
.I $XDG_CONFIG_HOME/autostart/app.pictray.Pictray.desktop
Starts Pictray at login when "Launch at login" is on.
)";

} // namespace

QString manPage(const QString& version)
{
    QString page =
        QStringLiteral(".TH PICTRAY 1 \"\" \"Pictray %1\" \"User Commands\"\n").arg(roff(version));
    page += QString::fromUtf8(name);
    page += QStringLiteral(".SH SYNOPSIS\n.B pictray\n");
    for (const CommandSpec& command : commandTable()) {
        if (!command.hidden)
            page += QStringLiteral(".br\n.B pictray\n%1\n").arg(roff(synopsis(command)));
    }
    page += QStringLiteral(".br\n.B pictray\n\\-\\-help | \\-\\-version\n");
    page += QString::fromUtf8(description);

    page += QStringLiteral(".SH COMMANDS\n");
    for (const CommandSpec& command : commandTable()) {
        if (command.hidden)
            continue;
        page += QStringLiteral(".TP\n\\fBpictray %1\\fR\n%2.")
                    .arg(roff(synopsis(command)), roff(command.summary));
        if (*command.description)
            page += u' ' + roff(command.description);
        page += u'\n';
        appendOptions(page, command.options);
        for (const ActionSpec& action : command.actions) {
            page += QStringLiteral(".RS\n.TP\n\\fB%1\\fR\n%2\n")
                        .arg(roff(QStringList{QLatin1String(command.name),
                                              synopsis(CommandSpec{.name = action.name,
                                                                   .run = nullptr,
                                                                   .summary = "",
                                                                   .options = action.options,
                                                                   .operands = action.operands})}
                                      .join(u' ')),
                             roff(action.description));
            appendOptions(page, action.options);
            page += QStringLiteral(".RE\n");
        }
    }

    page += QStringLiteral(".SH OPTIONS\n");
    for (const GlobalOption& option : globalOptions())
        page += QStringLiteral(".TP\n\\fB\\-%1\\fR, \\fB\\-\\-%2\\fR\n%3\n")
                    .arg(QLatin1String(option.shortName), QLatin1String(option.name),
                         roff(option.description));
    page += QString::fromUtf8(footer);
    return page;
}

} // namespace Cli
