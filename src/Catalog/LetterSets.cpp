#include "LetterSets.h"

quint64 LetterSets::bit(char c)
{
    if (c >= 'a' && c <= 'z')
        return quint64(1) << (c - 'a');
    if (c >= '0' && c <= '9')
        return quint64(1) << (26 + c - '0');
    return 0;
}

LetterSets LetterSets::of(std::string_view name, std::string_view tags)
{
    LetterSets sets;
    if (!name.empty()) {
        sets.m_nameFirst = name.front();
        sets.m_nameIsOneChar = name.size() == 1;
    }
    for (std::size_t i = 1; i < name.size(); ++i) {
        sets.m_nameRest |= bit(name[i]);
        if (name[i - 1] == '-')
            sets.m_nameSegmentStart |= bit(name[i]);
    }
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const quint64 b = bit(tags[i]);
        sets.m_tagAny |= b;
        if (i > 0 && tags[i - 1] == '\n') {
            sets.m_tagStart |= b;
            if (i + 1 == tags.size() || tags[i + 1] == '\n')
                sets.m_wholeTag |= b;
        }
    }
    return sets;
}

int LetterSets::score(char c) const
{
    const quint64 b = bit(c);
    if (m_nameFirst == c)
        return m_nameIsOneChar ? 100 : 80;
    if ((m_nameSegmentStart & b) != 0)
        return 70;
    if ((m_nameRest & b) != 0)
        return 50;
    if ((m_wholeTag & b) != 0)
        return 40;
    if ((m_tagStart & b) != 0)
        return 30;
    return (m_tagAny & b) != 0 ? 15 : 0;
}
