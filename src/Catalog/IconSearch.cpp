#include "IconSearch.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

// Scores use the lower-cased UTF-8 prepared with each icon, so a search folds
// the case of the query once and of nothing else.
struct Prepared {
    std::string_view haystack;
    std::string_view name;
    const std::vector<qsizetype>* tagEnds;

    template <typename F> void forEachTag(F&& f) const
    {
        std::size_t start = name.size() + 1;
        for (const qsizetype end : *tagEnds) {
            f(haystack.substr(start, static_cast<std::size_t>(end) - start));
            start = static_cast<std::size_t>(end) + 1;
        }
    }
};

bool startsSegment(std::string_view name, std::string_view word)
{
    if (word.find('-') != std::string_view::npos)
        return false; // a segment never holds a hyphen
    for (std::size_t at = name.find(word); at != std::string_view::npos;
         at = name.find(word, at + 1)) {
        if (at == 0 || name[at - 1] == '-')
            return true;
    }
    return false;
}

int scoreWord(const Prepared& icon, std::string_view word)
{
    const std::string_view name = icon.name;
    if (name == word)
        return 100;
    if (name.starts_with(word))
        return 80;
    if (startsSegment(name, word))
        return 70;
    if (name.find(word) != std::string_view::npos)
        return 50;
    int best = 0;
    icon.forEachTag([&](std::string_view tag) {
        if (best == 40)
            return;
        if (tag == word)
            best = 40;
        else if (best < 30 && tag.starts_with(word))
            best = 30;
        else if (best < 15 && tag.find(word) != std::string_view::npos)
            best = 15;
    });
    return best;
}

std::string_view view(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

QStringList IconSearch::queryWords(QStringView query)
{
    const QString lower = query.toString().toLower();
    QStringList words;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= lower.size(); ++i) {
        if (i == lower.size() || lower[i] == u' ' || lower[i] == u',') {
            if (i > start)
                words.append(lower.sliced(start, i - start));
            start = i + 1;
        }
    }
    return words;
}

IconList IconSearch::search(QStringView query, const IconList& icons)
{
    const QStringList words = queryWords(query);
    if (words.isEmpty())
        return icons;

    std::vector<QByteArray> utf8Words;
    utf8Words.reserve(static_cast<std::size_t>(words.size()));
    for (const QString& word : words)
        utf8Words.push_back(word.toUtf8());
    const QByteArray joinedBytes = words.join(u'-').toUtf8();
    const std::string_view joined = view(joinedBytes);

    struct Hit {
        int score;
        qsizetype position;
    };
    std::vector<Hit> hits;
    for (qsizetype position = 0; position < icons.size(); ++position) {
        const auto& data = *icons[position].d;
        const Prepared icon{
            view(data.haystack),
            view(data.haystack).substr(0, static_cast<std::size_t>(data.nameLength)),
            &data.tagEnds};
        int score = 0;
        for (const QByteArray& bytes : utf8Words) {
            const std::string_view word = view(bytes);
            // Most icons contain none of the words anywhere: skip the rules for them.
            const int wordScore =
                icon.haystack.find(word) == std::string_view::npos ? 0 : scoreWord(icon, word);
            if (wordScore == 0) {
                score = icon.name.find(joined) == std::string_view::npos ? -1 : 60;
                break;
            }
            score += wordScore;
        }
        if (score < 0)
            continue;
        if (icon.name == joined)
            score += 1000;
        hits.push_back({score, position});
    }

    std::stable_sort(hits.begin(), hits.end(),
                     [](const Hit& a, const Hit& b) { return a.score > b.score; });
    IconList result;
    result.reserve(static_cast<qsizetype>(hits.size()));
    for (const Hit& hit : hits)
        result.append(icons[hit.position]);
    return result;
}

IconSearch::NearMatches IconSearch::nearMatches(QStringView query, int limit,
                                                const IconList& catalogue)
{
    NearMatches result;
    const auto limitSize = static_cast<qsizetype>(std::max(limit, 0));
    // Even with no room for icons, a prefix only counts when it finds one.
    const qsizetype wanted = std::max<qsizetype>(limitSize, 1);
    for (const QString& word : queryWords(query)) {
        if (word.size() < 3)
            continue;
        for (qsizetype length = std::min<qsizetype>(word.size(), 5); length >= 3; --length) {
            const QString prefix = word.first(length);
            IconList found;
            for (const Icon& icon : catalogue) {
                if (found.size() >= wanted)
                    break;
                const bool hit =
                    icon.searchName().contains(prefix) ||
                    std::any_of(icon.searchTags().cbegin(), icon.searchTags().cend(),
                                [&](const QString& tag) { return tag.startsWith(prefix); });
                if (hit)
                    found.append(icon);
            }
            if (found.isEmpty())
                continue;
            result.words.append(prefix);
            for (const Icon& icon : found.first(std::min(found.size(), limitSize))) {
                const bool known =
                    std::any_of(result.icons.cbegin(), result.icons.cend(),
                                [&](const Icon& other) { return other.id() == icon.id(); });
                if (!known)
                    result.icons.append(icon);
            }
            break;
        }
        if (result.icons.size() >= limitSize)
            break;
    }
    result.icons = result.icons.first(std::min(result.icons.size(), limitSize));
    return result;
}
