#pragma once

#include "App/Cli/CommandLine.h"

#include <QString>
#include <QStringList>
#include <vector>

// The one description of the command line: `--help`, the man page and the
// shell completions are all made from this table, so they cannot disagree.
namespace Cli {

// What a value or an operand is, which says how to complete it.
enum class ValueKind {
    text,              // free text or a number: nothing to offer
    words,             // one of the listed values
    iconName,          // an icon of the catalogue
    favorite,          // one of the user's favorites
    file,              // a path
    directory,         // a folder
    settingKey,        // a key of `pictray prefs list`
    settingValue,      // a value of the setting named by the operand before
    settingAssignment, // KEY=VALUE
    tab,               // all, favorites, recents or category:NAME
};

struct OptionSpec {
    const char* name;                 // long name without the dashes
    const char* shortName = nullptr;  // shown instead of the long name in the synopsis
    const char* valueName = nullptr;  // nullptr for a switch; "" shows the values joined by |
    ValueKind kind = ValueKind::text; // of the value
    QStringList values = {};          // for ValueKind::words
    const char* description = "";
    bool required = false;
    bool repeatable = false;
};

struct OperandSpec {
    const char* name; // as the synopsis shows it
    ValueKind kind = ValueKind::text;
    bool repeats = false; // NAME...
    QStringList values = {};
};

// A first word that chooses what a command does: `prefs set KEY VALUE`.
struct ActionSpec {
    const char* name;
    std::vector<OperandSpec> operands = {};
    std::vector<OptionSpec> options = {};
    const char* description = "";
};

struct CommandSpec {
    const char* name;
    Run run;
    const char* summary; // one line
    const char* description = "";
    std::vector<OptionSpec> options = {};
    std::vector<OperandSpec> operands = {};
    std::vector<ActionSpec> actions = {};
    bool actionOptional = false; // without an action the first one is done
    bool operandsFirst = false;  // `export NAME [--format F]...`
    bool hidden = false;         // for the build and the shells, not for people
};

// Every command, in the order of the usage text.
const std::vector<CommandSpec>& commandTable();
const CommandSpec* findCommand(QStringView name);

// One line of the usage text, after "pictray ".
QString synopsis(const CommandSpec& command);
// How an option is written in a synopsis: "[--style outline|filled]", "-o FILE".
QString optionSynopsis(const OptionSpec& option);
// "--name", and "-s, --name" with a short name.
QString optionNames(const OptionSpec& option);
// The value as a synopsis shows it: "outline|filled", "FILE"; empty for a switch.
QString optionValueName(const OptionSpec& option);

// The options every command line takes before a command.
struct GlobalOption {
    const char* shortName;
    const char* name;
    const char* description;
};
const std::vector<GlobalOption>& globalOptions();

} // namespace Cli
