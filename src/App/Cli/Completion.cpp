#include "Completion.h"

#include "App/Cli/CommandTable.h"
#include "State/Preferences.h"

namespace Cli {
namespace {

QString categoryPrefix()
{
    return QStringLiteral("category:");
}

class Collector {
public:
    explicit Collector(QString prefix) : m_prefix(std::move(prefix)) {}

    void add(const QString& word, const QString& description = {})
    {
        if (!word.startsWith(m_prefix))
            return;
        m_result.words.append(word);
        m_result.descriptions.append(description);
    }
    void addAll(const QStringList& words)
    {
        for (const QString& word : words)
            add(word);
    }
    Completions take() { return std::move(m_result); }

private:
    QString m_prefix;
    Completions m_result;
};

Completions ofKind(Completions::Kind kind)
{
    Completions completions;
    completions.kind = kind;
    return completions;
}

// Candidates for a value of `kind`; `previous` is the operand before it.
Completions valuesOf(ValueKind kind, const QStringList& values, const QString& current,
                     const QString& previous, const CompletionSources& sources)
{
    Collector out(current);
    switch (kind) {
    case ValueKind::text:
        break;
    case ValueKind::words:
        out.addAll(values);
        break;
    case ValueKind::iconName:
        out.addAll(sources.iconNames(current));
        break;
    case ValueKind::favorite:
        out.addAll(sources.favorites());
        break;
    case ValueKind::file:
        return ofKind(Completions::Kind::files);
    case ValueKind::directory:
        return ofKind(Completions::Kind::directories);
    case ValueKind::settingKey:
        out.addAll(Preferences::keys());
        break;
    case ValueKind::settingValue:
        out.addAll(Preferences::valueChoices(previous));
        break;
    case ValueKind::settingAssignment:
        if (const qsizetype equals = current.indexOf(u'='); equals >= 0) {
            const QString key = current.left(equals + 1);
            for (const QString& value : Preferences::valueChoices(current.left(equals)))
                out.add(key + value);
        } else {
            for (const QString& key : Preferences::keys())
                out.add(key + u'=');
        }
        break;
    case ValueKind::tab:
        out.addAll({QStringLiteral("all"), QStringLiteral("favorites"), QStringLiteral("recents")});
        if (current.startsWith(categoryPrefix())) {
            for (const QString& category : sources.categories())
                out.add(categoryPrefix() + category);
        } else {
            out.add(categoryPrefix());
        }
        break;
    }
    return out.take();
}

const OptionSpec* findOption(const std::vector<OptionSpec>& options, QStringView word)
{
    for (const OptionSpec& option : options) {
        if (word == QStringLiteral("--") + QLatin1String(option.name) ||
            (option.shortName && word == u'-' + QLatin1String(option.shortName)))
            return &option;
    }
    return nullptr;
}

const ActionSpec* findAction(const CommandSpec& command, QStringView name)
{
    for (const ActionSpec& action : command.actions) {
        if (name == QLatin1String(action.name))
            return &action;
    }
    return nullptr;
}

Completions commandNames(const QString& current)
{
    Collector out(current);
    if (current.startsWith(u'-')) {
        for (const GlobalOption& option : globalOptions())
            out.add(QStringLiteral("--") + QLatin1String(option.name),
                    QLatin1String(option.description));
        return out.take();
    }
    for (const CommandSpec& command : commandTable()) {
        if (!command.hidden)
            out.add(QLatin1String(command.name), QLatin1String(command.summary));
    }
    return out.take();
}

// Where a command line stands before the word being completed.
struct Position {
    std::vector<OptionSpec> options;
    QStringList used; // options given, as written without a value
    QStringList operands;
    const OptionSpec* awaitingValue = nullptr;
    bool optionsEnded = false; // after "--"
};

Position positionAfter(const CommandSpec& command, const QStringList& words)
{
    Position at;
    at.options = command.options;
    for (const QString& word : words) {
        if (at.awaitingValue) {
            at.awaitingValue = nullptr;
        } else if (!at.optionsEnded && word == u"--") {
            at.optionsEnded = true;
        } else if (!at.optionsEnded && word.startsWith(u'-') && word.size() > 1) {
            const QString name = word.section(u'=', 0, 0);
            const OptionSpec* option = findOption(at.options, name);
            at.used.append(name);
            if (option && option->valueName && !word.contains(u'='))
                at.awaitingValue = option;
        } else {
            at.operands.append(word);
            if (at.operands.size() == 1) {
                if (const ActionSpec* action = findAction(command, word))
                    at.options.insert(at.options.end(), action->options.begin(),
                                      action->options.end());
            }
        }
    }
    return at;
}

Completions optionNamesFor(const Position& at, const QString& current)
{
    Collector out(current);
    for (const OptionSpec& option : at.options) {
        const QString name = QStringLiteral("--") + QLatin1String(option.name);
        const bool given =
            at.used.contains(name) ||
            (option.shortName && at.used.contains(u'-' + QLatin1String(option.shortName)));
        if (!given || option.repeatable)
            out.add(name, QLatin1String(option.description));
    }
    return out.take();
}

Completions withPrefix(Completions completions, const QString& prefix)
{
    for (QString& word : completions.words)
        word.prepend(prefix);
    return completions;
}

Completions operandValues(const CommandSpec& command, const Position& at, const QString& current,
                          const CompletionSources& sources)
{
    const std::vector<OperandSpec>* operands = &command.operands;
    qsizetype index = at.operands.size();
    if (!command.actions.empty()) {
        if (at.operands.isEmpty()) {
            Collector out(current);
            for (const ActionSpec& action : command.actions)
                out.add(QLatin1String(action.name), QLatin1String(action.description));
            return out.take();
        }
        const ActionSpec* action = findAction(command, at.operands.constFirst());
        if (!action)
            return {};
        operands = &action->operands;
        --index;
    }
    if (operands->empty())
        return {};
    const auto count = static_cast<qsizetype>(operands->size());
    if (index >= count && !operands->back().repeats)
        return {};
    const OperandSpec& operand = (*operands)[static_cast<size_t>(std::min(index, count - 1))];
    return valuesOf(operand.kind, operand.values, current,
                    at.operands.value(at.operands.size() - 1), sources);
}

} // namespace

std::optional<Shell> shellNamed(QStringView name)
{
    if (name == u"bash")
        return Shell::bash;
    if (name == u"zsh")
        return Shell::zsh;
    if (name == u"fish")
        return Shell::fish;
    return std::nullopt;
}

Completions completionsFor(const QStringList& words, const CompletionSources& sources)
{
    const QString current = words.value(words.size() - 1);
    if (words.size() <= 1)
        return commandNames(current);
    const CommandSpec* command = findCommand(words.constFirst());
    if (!command || command->hidden)
        return {};

    const Position at = positionAfter(*command, words.mid(1, words.size() - 2));
    if (at.awaitingValue)
        return valuesOf(at.awaitingValue->kind, at.awaitingValue->values, current,
                        at.operands.value(at.operands.size() - 1), sources);
    if (!at.optionsEnded && current.startsWith(u'-')) {
        const qsizetype equals = current.indexOf(u'=');
        if (equals < 0)
            return optionNamesFor(at, current);
        const OptionSpec* option = findOption(at.options, QStringView(current).left(equals));
        if (!option || !option->valueName)
            return {};
        const QString prefix = current.left(equals + 1);
        return withPrefix(
            valuesOf(option->kind, option->values, current.mid(equals + 1), QString(), sources),
            prefix);
    }
    return operandValues(*command, at, current, sources);
}

QString completionOutput(const Completions& completions, Shell shell)
{
    switch (completions.kind) {
    case Completions::Kind::files:
        return QStringLiteral(":files\n");
    case Completions::Kind::directories:
        return QStringLiteral(":dirs\n");
    case Completions::Kind::words:
        break;
    }
    QString text;
    for (qsizetype i = 0; i < completions.words.size(); ++i) {
        const QString& description = completions.descriptions.value(i);
        if (shell == Shell::bash)
            text += QString(completions.words[i]).replace(u' ', QStringLiteral("\\ "));
        else
            text += completions.words[i];
        if (shell != Shell::bash && !description.isEmpty())
            text += u'\t' + description;
        text += u'\n';
    }
    return text;
}

} // namespace Cli
