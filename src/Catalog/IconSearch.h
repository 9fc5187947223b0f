#pragma once

#include "Icon.h"
#include "LetterSets.h"

#include <QHash>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Ranks icons against what the user types. Built once per catalogue: the
// lower-cased names and tags of every icon lie in one contiguous block, so a
// search scans memory in order and folds the case of the query only.
class IconSearch {
public:
    struct NearMatches {
        QStringList words; // the shortened words that found something
        IconList icons;
    };

    using Signature = std::array<quint64, 5>;

    IconSearch() = default;
    explicit IconSearch(const IconList& icons);

    // Lower-cased pieces of the query between spaces and commas.
    static QStringList queryWords(QStringView query);

    // The matching icons of `icons`, best first; all of them for an empty
    // query. `icons` may be any list; icons outside the index cost a
    // temporary index of their own.
    IconList search(QStringView query, const IconList& icons) const;

    // Suggestions for a query that found nothing, from every indexed icon.
    NearMatches nearMatches(QStringView query, int limit) const;

private:
    struct Entry {
        std::uint32_t start; // name, then "\n" + tag for each tag
        std::uint32_t nameEnd;
        std::uint32_t end;
    };
    struct Word {
        std::string_view text; // lower-cased UTF-8
        bool hyphenated;       // then no segment of a name can begin with it
    };
    struct Hit {
        int score;
        std::uint32_t position;
    };

    std::vector<std::uint32_t> slotsOf(const IconList& icons) const;
    int scoreWord(std::uint32_t slot, const Word& word) const;
    std::string_view name(const Entry& entry) const;
    template <typename F> void forEachTag(const Entry& entry, F&& f) const;
    static IconList sortedByScore(const std::vector<Hit>& hits, const IconList& icons);

    IconList m_icons;
    std::string m_text; // every entry's name and tags, lower-cased UTF-8
    std::vector<Entry> m_entries;
    std::vector<Signature> m_signatures; // bytes and byte pairs of each entry
    std::vector<LetterSets> m_letters;
    QHash<const void*, std::uint32_t> m_entryOf;
};
