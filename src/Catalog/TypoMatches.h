#pragma once

#include "Icon.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What the user most likely meant when a typo made a search find nothing:
// icons whose name, or whose name and tag words one by one, lie within a few
// edits of the query. Built once per catalogue; the distinct words and the
// names are kept sorted by length, so a query compares only against those
// that could be close enough.
class TypoMatches {
public:
    TypoMatches() = default;
    explicit TypoMatches(const IconList& icons);

    // How many edits a typed word of `length` bytes may be from a word of
    // the catalogue: short words have too many neighbours to guess from.
    static int allowedEdits(std::size_t length);

    // Optimal string alignment distance (insertions, deletions,
    // substitutions and swaps of neighbours), or limit + 1 when larger.
    static int distance(std::string_view a, std::string_view b, int limit);

    // Up to `limit` icons, most likely first; none when nothing is close.
    IconList matches(QStringView query, int limit) const;

private:
    struct Posting {
        std::uint32_t icon;
        bool inName; // else only in a tag
    };
    struct Word {
        std::uint32_t start; // in m_text
        std::uint32_t size;
        std::uint64_t letters;
        std::vector<Posting> icons;
    };
    // Entries of one kind sorted by size, with where each size begins.
    struct ByLength {
        std::vector<std::uint32_t> order;
        std::vector<std::uint32_t> firstOfSize; // index: size, one past the largest
        template <typename F> void forSizes(std::size_t size, int edits, F&& f) const;
    };
    struct Cost;

    std::string_view text(std::uint32_t start, std::uint32_t size) const;
    void matchNames(std::string_view joined, std::vector<Cost>& costs) const;
    void matchWords(const std::vector<std::string>& words, std::vector<Cost>& costs) const;

    IconList m_icons;
    std::string m_text;
    std::vector<Word> m_words;
    std::vector<std::uint32_t> m_nameStart; // per icon, in m_text
    std::vector<std::uint32_t> m_nameSize;
    std::vector<std::uint64_t> m_nameLetters;
    std::vector<std::uint8_t> m_nameWords; // how many hyphen-separated words
    ByLength m_wordsByLength;
    ByLength m_namesByLength;
};
