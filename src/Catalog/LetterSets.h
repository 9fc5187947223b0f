#pragma once

#include <QtGlobal>
#include <string_view>

// Where each letter and digit occurs in one icon's name and tags, one bit
// per character. The first keystroke of a search is a single letter that
// matches most of the catalogue; with these it is ranked without reading
// any text.
class LetterSets {
public:
    // `tags` is every tag preceded by a line break, as the search index
    // keeps them.
    static LetterSets of(std::string_view name, std::string_view tags);

    // Only a-z and 0-9 have a bit; other words take the general path.
    static bool covers(char c) { return bit(c) != 0; }
    // The rank IconSearch gives a one-character word, for a covered c.
    int score(char c) const;

private:
    static quint64 bit(char c);

    char m_nameFirst = 0;
    bool m_nameIsOneChar = false;
    quint64 m_nameRest = 0;         // past the first character
    quint64 m_nameSegmentStart = 0; // right after a hyphen
    quint64 m_wholeTag = 0;         // tags of one character
    quint64 m_tagStart = 0;
    quint64 m_tagAny = 0;
};
