#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

// Shell completion: the shells' scripts hand the words of the command line to
// `pictray complete SHELL WORD...`, and what completes the last word is
// worked out here from the command table.
namespace Cli {

enum class Shell { bash, zsh, fish };
std::optional<Shell> shellNamed(QStringView name);

struct Completions {
    // files and directories leave the completing to the shell.
    enum class Kind { words, files, directories };
    Kind kind = Kind::words;
    QStringList words;
    QStringList descriptions; // beside words; empty strings where there is none
};

// Where the candidates that change at run time come from.
struct CompletionSources {
    std::function<QStringList(const QString& prefix)> iconNames;
    std::function<QStringList()> favorites;
    std::function<QStringList()> categories;
};

// What completes the last of `words`: the words after "pictray", the last
// being the one the cursor is in (empty at a new word).
Completions completionsFor(const QStringList& words, const CompletionSources& sources);

// The answer a shell's script reads: ":files" or ":dirs" alone, or one
// candidate a line, "word<TAB>description" for the shells that show
// descriptions. Bash gets spaces escaped, as it inserts the words verbatim.
QString completionOutput(const Completions& completions, Shell shell);

// The script that makes a shell ask `pictray complete`.
QString completionScript(Shell shell);

} // namespace Cli
