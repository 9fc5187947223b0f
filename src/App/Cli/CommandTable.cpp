#include "CommandTable.h"

#include "App/Cli/Commands/Commands.h"
#include "Base/ExportFormat.h"
#include "Catalog/Icon.h"

namespace Cli {
namespace {

template <typename E> QStringList namesOf()
{
    QStringList names;
    for (const E value : allCases<E>())
        names.append(rawValue(value));
    return names;
}

QStringList words(std::initializer_list<const char*> list)
{
    QStringList names;
    for (const char* word : list)
        names.append(QLatin1String(word));
    return names;
}

OptionSpec styleOption(const char* description)
{
    return {.name = "style",
            .valueName = "",
            .kind = ValueKind::words,
            .values = namesOf<IconStyle>(),
            .description = description};
}

std::vector<CommandSpec> makeTable()
{
    return {
        {.name = "info",
         .run = info,
         .summary = "Show the icon set in use",
         .description = "Prints the icon set's version, the number of icons, outline and filled "
                        "forms and categories, and where the icon set came from: shipped inside "
                        "the program, or downloaded to a path."},
        {.name = "search",
         .run = search,
         .summary = "Search icons by name and tag",
         .description =
             "Prints the matching icon names, best first, one per line, ranked as the picker "
             "ranks them: an exact name first, then names that start with a word, names with a "
             "segment that starts with it, names containing it, then tags. No match prints "
             "nothing.",
         .options = {styleOption("Only icons that have this form."),
                     {.name = "in",
                      .valueName = "all|favorites|recents|category:NAME",
                      .kind = ValueKind::tab,
                      .description = "Search what one of the picker's tabs lists: everything, "
                                     "the favorites or recents in their order, or one category."}},
         .operands = {{.name = "QUERY", .repeats = true}}},
        {.name = "near",
         .run = near,
         .summary = "Suggest searches for a query that finds nothing",
         .description = "Prints a line \"words: \" with the shortened words that find "
                        "something, then icon names.",
         .options = {{.name = "limit",
                      .valueName = "N",
                      .description = "At most N icon names (5 unless given)."}},
         .operands = {{.name = "QUERY", .repeats = true}}},
        {.name = "export",
         .run = exportIcon,
         .summary = "Write one icon in one format",
         .description = "Writes one icon as SVG, a component or a PNG. Options left out come "
                        "from your settings. Text formats go to standard output byte for byte "
                        "or to a file; PNG formats to a file, or to standard output when it is "
                        "not a terminal.",
         .options =
             {{.name = "format",
               .valueName = "F",
               .kind = ValueKind::words,
               .values = namesOf<ExportFormat>(),
               .description = "svg, jsx, vue, blade, tailwind, dataURI, png1, png2 or png3."},
              styleOption("The icon's form; an icon without a filled form is exported "
                          "as outline."),
              {.name = "size", .valueName = "N", .description = "Size in pixels, 1 to 4096."},
              {.name = "stroke",
               .valueName = "X",
               .description = "Stroke width, above 0 up to 100."},
              {.name = "color",
               .valueName = "C",
               .description = "A CSS colour such as #1e66f5, or currentColor."},
              {.name = "set",
               .valueName = "KEY=VALUE",
               .kind = ValueKind::settingAssignment,
               .description = "Changes a setting for this run only; nothing is saved.",
               .repeatable = true},
              {.name = "output",
               .shortName = "o",
               .valueName = "FILE",
               .kind = ValueKind::file,
               .description = "Write to FILE instead of standard output."}},
         .operands = {{.name = "NAME", .kind = ValueKind::iconName}},
         .operandsFirst = true},
        {.name = "prefs",
         .run = prefs,
         .summary = "List, read and change settings",
         .actions = {{.name = "list", .description = "Prints every setting as KEY=VALUE."},
                     {.name = "get",
                      .operands = {{.name = "KEY", .kind = ValueKind::settingKey}},
                      .description = "Prints one setting's value."},
                     {.name = "set",
                      .operands = {{.name = "KEY", .kind = ValueKind::settingKey},
                                   {.name = "VALUE", .kind = ValueKind::settingValue}},
                      .description = "Changes a setting; a value the program would not "
                                     "understand is refused."},
                     {.name = "reset",
                      .operands = {{.name = "KEY", .kind = ValueKind::settingKey}},
                      .description = "Forgets your value, so the default applies again."}},
         .actionOptional = true},
        {.name = "favorites",
         .run = favorites,
         .summary = "Show and edit the favorites",
         .actions = {{.name = "list", .description = "Prints the favorites in their order."},
                     {.name = "add",
                      .operands = {{.name = "NAME", .kind = ValueKind::iconName, .repeats = true}},
                      .description = "Adds icons to the favorites."},
                     {.name = "remove",
                      .operands = {{.name = "NAME", .kind = ValueKind::favorite, .repeats = true}},
                      .description = "Removes icons from the favorites."},
                     {.name = "export",
                      .operands = {{.name = "FILE", .kind = ValueKind::file}},
                      .description = "Writes the favorites to FILE (- for standard output)."},
                     {.name = "import",
                      .operands = {{.name = "FILE", .kind = ValueKind::file}},
                      .description = "Adds the favorites of an exported file or of a JSON "
                                     "array of names (- for standard input)."}},
         .actionOptional = true},
        {.name = "recents",
         .run = recents,
         .summary = "Show the recently copied icons",
         .description = "Prints the recently copied icons, newest first."},
        {.name = "update",
         .run = update,
         .summary = "Update to the newest icon set release",
         .description = "Checks once for a newer icon set release and installs it, printing "
                        "each step. Exit status 0 when updated or up to date."},
        {.name = "catalogue",
         .run = catalogue,
         .summary = "Build a catalogue file from the icon set's package",
         .actions = {{.name = "build",
                      .options = {{.name = "from",
                                   .valueName = "DIR",
                                   .kind = ValueKind::directory,
                                   .description = "The unpacked @tabler/icons package.",
                                   .required = true},
                                  {.name = "version",
                                   .valueName = "V",
                                   .description = "The version to record instead of the "
                                                  "package's own."},
                                  {.name = "output",
                                   .shortName = "o",
                                   .valueName = "FILE",
                                   .kind = ValueKind::file,
                                   .description = "The catalogue file to write.",
                                   .required = true}},
                      .description = "Converts the package's icons.json and node files into "
                                     "a catalogue file."}}},
        {.name = "toggle",
         .run = toggle,
         .summary = "Open the picker, or close it when open",
         .description = "Asks the running Pictray, as the picker's shortcut does."},
        {.name = "show",
         .run = show,
         .summary = "Open the picker",
         .description = "Asks the running Pictray to open the picker, on the tab given.",
         .options = {{.name = "tab",
                      .valueName = "",
                      .kind = ValueKind::words,
                      .values = words({"favorites", "recents", "all"}),
                      .description = "The tab to open on."}}},
        {.name = "copy-last",
         .run = copyLast,
         .summary = "Copy the last icon again",
         .description = "Asks the running Pictray, as the copy-last shortcut does."},
        {.name = "completions",
         .run = completions,
         .summary = "Print the completion script for a shell",
         .operands = {{.name = "SHELL",
                       .kind = ValueKind::words,
                       .values = words({"bash", "zsh", "fish"})}},
         .hidden = true},
        {.name = "complete",
         .run = complete,
         .summary = "Print what completes the words of a command line",
         .operands = {{.name = "SHELL",
                       .kind = ValueKind::words,
                       .values = words({"bash", "zsh", "fish"})},
                      {.name = "WORD", .repeats = true}},
         .hidden = true},
        {.name = "manpage", .run = manpage, .summary = "Print the manual page", .hidden = true},
    };
}

QString joinedOperands(const std::vector<OperandSpec>& operands)
{
    QStringList parts;
    for (const OperandSpec& operand : operands)
        parts.append(QLatin1String(operand.name) +
                     (operand.repeats ? QStringLiteral("...") : QString()));
    return parts.join(u' ');
}

QString joinedOptions(const std::vector<OptionSpec>& options)
{
    QStringList parts;
    for (const OptionSpec& option : options)
        parts.append(optionSynopsis(option));
    return parts.join(u' ');
}

QString joined(const QStringList& parts)
{
    QStringList nonEmpty = parts;
    nonEmpty.removeAll(QString());
    return nonEmpty.join(u' ');
}

} // namespace

const std::vector<CommandSpec>& commandTable()
{
    static const std::vector<CommandSpec> table = makeTable();
    return table;
}

const CommandSpec* findCommand(QStringView name)
{
    for (const CommandSpec& command : commandTable()) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

const std::vector<GlobalOption>& globalOptions()
{
    static const std::vector<GlobalOption> options{
        {"h", "help", "Print the usage and exit."},
        {"v", "version", "Print the version and exit."},
    };
    return options;
}

QString optionValueName(const OptionSpec& option)
{
    if (option.valueName == nullptr)
        return {};
    if (*option.valueName == '\0')
        return option.values.join(u'|');
    return QLatin1String(option.valueName);
}

QString optionNames(const OptionSpec& option)
{
    const QString longName = QStringLiteral("--") + QLatin1String(option.name);
    return option.shortName
               ? QStringLiteral("-%1, %2").arg(QLatin1String(option.shortName), longName)
               : longName;
}

QString optionSynopsis(const OptionSpec& option)
{
    const QString name = option.shortName ? u'-' + QLatin1String(option.shortName)
                                          : QStringLiteral("--") + QLatin1String(option.name);
    const QString value = optionValueName(option);
    QString text = value.isEmpty() ? name : name + u' ' + value;
    if (!option.required)
        text = u'[' + text + u']';
    if (option.repeatable)
        text += QStringLiteral("...");
    return text;
}

QString synopsis(const CommandSpec& command)
{
    const QString name = QLatin1String(command.name);
    if (!command.actions.empty()) {
        QStringList actions;
        for (const ActionSpec& action : command.actions)
            actions.append(joined({QLatin1String(action.name), joinedOperands(action.operands),
                                   joinedOptions(action.options)}));
        const QString choice = actions.join(QStringLiteral(" | "));
        return name + u' ' + (command.actionOptional ? u'[' + choice + u']' : choice);
    }
    const QString operands = joinedOperands(command.operands);
    const QString options = joinedOptions(command.options);
    return command.operandsFirst ? joined({name, operands, options})
                                 : joined({name, options, operands});
}

} // namespace Cli
