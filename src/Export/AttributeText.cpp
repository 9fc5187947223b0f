#include "AttributeText.h"

namespace AttributeText {
namespace {

bool isReferenceCharacter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           c == u'#';
}

// "&name;" or "&#123;": a bare "&" followed by anything else reads as itself.
bool startsReference(QStringView rest)
{
    qsizetype i = 1;
    while (i < rest.size() && isReferenceCharacter(rest[i]))
        ++i;
    return i > 1 && i < rest.size() && rest[i] == u';';
}

} // namespace

QString escaped(QStringView value)
{
    QString out;
    out.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        if (c == u'"')
            out += QStringLiteral("&quot;");
        else if (c == u'<')
            out += QStringLiteral("&lt;");
        else if (c == u'>')
            out += QStringLiteral("&gt;");
        else if (c == u'&' && startsReference(value.sliced(i)))
            out += QStringLiteral("&amp;");
        else
            out += c;
    }
    return out;
}

} // namespace AttributeText
