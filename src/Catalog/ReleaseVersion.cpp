#include "ReleaseVersion.h"

#include "NumericCompare.h"

#include <QRegularExpression>
#include <algorithm>

std::optional<ReleaseVersion> ReleaseVersion::parse(QStringView text)
{
    static const QRegularExpression pattern(QStringLiteral(
        "^([0-9]{1,6}(?:\\.[0-9]{1,6}){1,3})(?:-([0-9A-Za-z]+(?:[.-][0-9A-Za-z]+)*))?$"));
    const QRegularExpressionMatch match = pattern.match(text.toString());
    if (!match.hasMatch())
        return std::nullopt;
    ReleaseVersion version;
    for (const QStringView part : match.capturedView(1).split(u'.'))
        version.m_numbers.append(part.toInt());
    version.m_suffix = match.captured(2);
    return version;
}

int ReleaseVersion::compare(const ReleaseVersion& other) const
{
    const qsizetype parts = std::max(m_numbers.size(), other.m_numbers.size());
    for (qsizetype i = 0; i < parts; ++i) {
        const int mine = m_numbers.value(i);
        const int theirs = other.m_numbers.value(i);
        if (mine != theirs)
            return mine < theirs ? -1 : 1;
    }
    if (m_suffix.isEmpty() || other.m_suffix.isEmpty())
        return int(m_suffix.isEmpty()) - int(other.m_suffix.isEmpty());
    return numericCompare(m_suffix, other.m_suffix);
}

int compareCatalogueVersions(QStringView a, QStringView b)
{
    const auto first = ReleaseVersion::parse(a);
    const auto second = ReleaseVersion::parse(b);
    if (first && second)
        return first->compare(*second);
    return int(first.has_value()) - int(second.has_value());
}
