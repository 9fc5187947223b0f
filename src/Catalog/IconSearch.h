#pragma once

#include "Icon.h"

// Ranks icons against what the user types. Matches the lower-cased names and
// tags prepared when the icons were built; only the query is case-folded.
class IconSearch {
public:
    struct NearMatches {
        QStringList words; // the shortened words that found something
        IconList icons;
    };

    // Lower-cased pieces of the query between spaces and commas.
    static QStringList queryWords(QStringView query);

    // The matching icons of `icons`, best first; all of them for an empty query.
    static IconList search(QStringView query, const IconList& icons);

    // Suggestions for a query that found nothing, from the whole catalogue.
    static NearMatches nearMatches(QStringView query, int limit, const IconList& catalogue);
};
