#include "InstanceRequest.h"

namespace {

constexpr QLatin1StringView reopenWord("reopen");
constexpr QLatin1StringView toggleWord("toggle");
constexpr QLatin1StringView showWord("show");
constexpr QLatin1StringView copyLastWord("copy-last");
constexpr QLatin1StringView okWord("ok");
constexpr QLatin1StringView errorWord("error");

QString tabName(const PickerTab& tab)
{
    switch (tab.kind()) {
    case PickerTab::Kind::favorites:
        return QStringLiteral("favorites");
    case PickerTab::Kind::recents:
        return QStringLiteral("recents");
    case PickerTab::Kind::all:
    case PickerTab::Kind::category:
        break;
    }
    return QStringLiteral("all");
}

// The answer is printed in the user's terminal: escape sequences and other
// invisible characters in it could rewrite what the terminal shows.
QString printable(const QString& text)
{
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        if (c.category() != QChar::Other_Control && c.category() != QChar::Other_Format)
            out += c;
    }
    return out;
}

} // namespace

QByteArray InstanceRequest::encode() const
{
    QString line;
    switch (kind) {
    case Kind::reopen:
        line = reopenWord;
        break;
    case Kind::toggle:
        line = toggleWord;
        break;
    case Kind::show:
        line = showWord;
        if (tab)
            line += u' ' + tabName(*tab);
        break;
    case Kind::copyLast:
        line = copyLastWord;
        break;
    }
    return line.toUtf8() + '\n';
}

std::optional<InstanceRequest> InstanceRequest::decode(const QByteArray& line)
{
    const QStringList words = QString::fromUtf8(line).trimmed().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || words.size() > 2)
        return std::nullopt;
    const QString& verb = words.first();
    if (words.size() == 2) {
        if (verb != showWord)
            return std::nullopt;
        const auto tab = tabNamed(words.at(1));
        if (!tab)
            return std::nullopt;
        return InstanceRequest{Kind::show, tab};
    }
    if (verb == reopenWord)
        return InstanceRequest{Kind::reopen, std::nullopt};
    if (verb == toggleWord)
        return InstanceRequest{Kind::toggle, std::nullopt};
    if (verb == showWord)
        return InstanceRequest{Kind::show, std::nullopt};
    if (verb == copyLastWord)
        return InstanceRequest{Kind::copyLast, std::nullopt};
    return std::nullopt;
}

std::optional<PickerTab> InstanceRequest::tabNamed(QStringView name)
{
    if (name == u"favorites")
        return PickerTab::favorites();
    if (name == u"recents")
        return PickerTab::recents();
    if (name == u"all")
        return PickerTab::all();
    return std::nullopt;
}

QByteArray InstanceReply::encode() const
{
    if (ok)
        return QByteArray(okWord.data(), okWord.size()) + '\n';
    QString text = message;
    text.replace(u'\n', u' ');
    return (errorWord + u' ' + text).toUtf8() + '\n';
}

InstanceReply InstanceReply::decode(const QByteArray& line)
{
    const QString text = printable(QString::fromUtf8(line).trimmed());
    if (text == okWord)
        return {};
    if (text.startsWith(errorWord + u' '))
        return {false, text.mid(errorWord.size() + 1)};
    return {false,
            QStringLiteral("The running Pictray gave an answer this version does not understand.")};
}
