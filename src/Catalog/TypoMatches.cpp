#include "TypoMatches.h"

#include "IconSearch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <unordered_map>

namespace {

// Longer words are compared only for equality: nobody types them by hand.
constexpr std::size_t longestCompared = 63;
// A query of more words than this matches no icon's words one by one.
constexpr std::size_t mostWords = 8;
constexpr int unreached = std::numeric_limits<int>::max();

std::string utf8(QStringView text)
{
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

template <typename F> void forEachWord(std::string_view text, F&& f)
{
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text[i] == '-' || text[i] == ' ' || text[i] == ',' ||
            text[i] == '\n') {
            if (i > start)
                f(text.substr(start, i - start));
            start = i + 1;
        }
    }
}

// Two edits away weighs more than a changed first letter, which weighs
// more than a word found only among the tags: people seldom mistype the
// first letter, and a name says more than a tag.
int editCost(int edits, std::string_view typed, std::string_view found)
{
    const bool firstChanged = edits > 0 && typed.front() != found.front();
    return 4 * edits + (firstChanged ? 2 : 0);
}

// Which characters a text holds, one bit each (others share bits). An edit
// changes at most two bits, so texts whose sets differ in more than twice
// the allowed edits are too far apart to compare.
std::uint64_t letterSet(std::string_view text)
{
    std::uint64_t bits = 0;
    for (const char c : text)
        bits |= std::uint64_t(1) << (static_cast<unsigned char>(c) % 64);
    return bits;
}

bool tooFarApart(std::uint64_t a, std::uint64_t b, int edits)
{
    return std::popcount(a ^ b) > 2 * edits;
}

} // namespace

struct TypoMatches::Cost {
    int value = unreached; // lower is likelier
    int extraWords = 0;    // name words the query did not account for
    bool edited = true;    // else ordinary search finds the icon already

    bool operator<(const Cost& other) const
    {
        return value != other.value ? value < other.value : extraWords < other.extraWords;
    }
};

template <typename F> void TypoMatches::ByLength::forSizes(std::size_t size, int edits, F&& f) const
{
    if (firstOfSize.empty())
        return;
    const std::size_t largest = firstOfSize.size() - 2;
    const auto spread = static_cast<std::size_t>(edits);
    const std::size_t from = size > spread ? size - spread : 0;
    const std::size_t to = std::min(size + spread, largest);
    for (std::size_t s = from; s <= to; ++s) {
        for (std::uint32_t i = firstOfSize[s]; i < firstOfSize[s + 1]; ++i)
            f(order[i]);
    }
}

namespace {

template <typename Index> Index byLength(const std::vector<std::uint32_t>& sizes)
{
    Index index;
    const std::uint32_t largest =
        sizes.empty() ? 0 : *std::max_element(sizes.cbegin(), sizes.cend());
    index.firstOfSize.assign(largest + 2, 0);
    for (const std::uint32_t size : sizes)
        ++index.firstOfSize[size + 1];
    for (std::size_t s = 1; s < index.firstOfSize.size(); ++s)
        index.firstOfSize[s] += index.firstOfSize[s - 1];
    index.order.resize(sizes.size());
    std::vector<std::uint32_t> next(index.firstOfSize.cbegin(), index.firstOfSize.cend() - 1);
    for (std::uint32_t i = 0; i < sizes.size(); ++i)
        index.order[next[sizes[i]]++] = i;
    return index;
}

} // namespace

TypoMatches::TypoMatches(const IconList& icons) : m_icons(icons)
{
    std::unordered_map<std::string, std::uint32_t> wordIds;
    std::vector<std::string> wordTexts;
    for (const Icon& icon : icons) {
        const auto slot = static_cast<std::uint32_t>(m_nameStart.size());
        const auto note = [&](std::string_view word, bool inName) {
            auto [it, added] =
                wordIds.try_emplace(std::string(word), static_cast<std::uint32_t>(m_words.size()));
            if (added) {
                m_words.push_back(
                    {0, static_cast<std::uint32_t>(word.size()), letterSet(word), {}});
                wordTexts.emplace_back(word);
            }
            std::vector<Posting>& postings = m_words[it->second].icons;
            if (!postings.empty() && postings.back().icon == slot)
                postings.back().inName = postings.back().inName || inName;
            else
                postings.push_back({slot, inName});
        };
        const std::string name = utf8(icon.searchName());
        m_nameStart.push_back(static_cast<std::uint32_t>(m_text.size()));
        m_nameSize.push_back(static_cast<std::uint32_t>(name.size()));
        m_nameLetters.push_back(letterSet(name));
        m_text += name;
        int nameWords = 0;
        forEachWord(name, [&](std::string_view word) {
            ++nameWords;
            note(word, true);
        });
        m_nameWords.push_back(static_cast<std::uint8_t>(std::min(nameWords, 255)));
        for (const QString& tag : icon.searchTags())
            forEachWord(utf8(tag), [&](std::string_view word) { note(word, false); });
    }
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        m_words[i].start = static_cast<std::uint32_t>(m_text.size());
        m_text += wordTexts[i];
    }
    m_namesByLength = byLength<ByLength>(m_nameSize);
    std::vector<std::uint32_t> wordSizes;
    wordSizes.reserve(m_words.size());
    for (const Word& word : m_words)
        wordSizes.push_back(word.size);
    m_wordsByLength = byLength<ByLength>(wordSizes);
}

int TypoMatches::allowedEdits(std::size_t length)
{
    if (length < 4)
        return 0;
    return length < 8 ? 1 : 2;
}

int TypoMatches::distance(std::string_view a, std::string_view b, int limit)
{
    const std::size_t n = a.size();
    const std::size_t m = b.size();
    const auto spread = n > m ? n - m : m - n;
    if (spread > static_cast<std::size_t>(limit))
        return limit + 1;
    if (n > longestCompared || m > longestCompared)
        return a == b ? 0 : limit + 1;
    // Three rows of the edit table: two back for a swap, the last, this one.
    std::array<int, longestCompared + 1> before{}, last{}, row{};
    for (std::size_t j = 0; j <= m; ++j)
        last[j] = static_cast<int>(j);
    for (std::size_t i = 1; i <= n; ++i) {
        row[0] = static_cast<int>(i);
        int rowBest = row[0];
        for (std::size_t j = 1; j <= m; ++j) {
            const int substitution = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            int cell = std::min({last[j] + 1, row[j - 1] + 1, substitution});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                cell = std::min(cell, before[j - 2] + 1);
            row[j] = cell;
            rowBest = std::min(rowBest, cell);
        }
        if (rowBest > limit)
            return limit + 1;
        before = last;
        last = row;
    }
    return std::min(last[m], limit + 1);
}

std::string_view TypoMatches::text(std::uint32_t start, std::uint32_t size) const
{
    return std::string_view(m_text).substr(start, size);
}

void TypoMatches::matchNames(std::string_view joined, std::vector<Cost>& costs) const
{
    const int edits = allowedEdits(joined.size());
    const std::uint64_t letters = letterSet(joined);
    m_namesByLength.forSizes(joined.size(), edits, [&](std::uint32_t icon) {
        if (tooFarApart(letters, m_nameLetters[icon], edits))
            return;
        const std::string_view name = text(m_nameStart[icon], m_nameSize[icon]);
        const int d = distance(joined, name, edits);
        if (d <= edits)
            costs[icon] = std::min(costs[icon], Cost{editCost(d, joined, name), 0, d > 0});
    });
}

// Every typed word must be close to a word of the icon's name or tags; the
// icon costs the sum of its best words.
void TypoMatches::matchWords(const std::vector<std::string>& words, std::vector<Cost>& costs) const
{
    const std::size_t count = m_icons.size();
    std::vector<int> total(count, 0);
    std::vector<int> editsMade(count, 0);
    std::vector<std::uint8_t> matched(count, 0);
    std::vector<int> best(count, unreached);
    std::vector<std::uint32_t> touched;
    for (std::size_t w = 0; w < words.size(); ++w) {
        const std::string_view typed = words[w];
        const int edits = allowedEdits(typed.size());
        const std::uint64_t letters = letterSet(typed);
        touched.clear();
        m_wordsByLength.forSizes(typed.size(), edits, [&](std::uint32_t id) {
            const Word& word = m_words[id];
            if (tooFarApart(letters, word.letters, edits))
                return;
            const std::string_view found = text(word.start, word.size);
            const int d = distance(typed, found, edits);
            if (d > edits)
                return;
            const int cost = editCost(d, typed, found);
            for (const Posting& posting : word.icons) {
                if (matched[posting.icon] != w)
                    continue; // an earlier word missed this icon
                int& slot = best[posting.icon];
                if (slot == unreached)
                    touched.push_back(posting.icon);
                slot = std::min(slot, cost + (posting.inName ? 0 : 1));
            }
        });
        if (touched.empty())
            return;
        for (const std::uint32_t icon : touched) {
            total[icon] += best[icon];
            editsMade[icon] += best[icon] / 4; // see editCost
            best[icon] = unreached;
            ++matched[icon];
        }
    }
    for (const std::uint32_t icon : touched) {
        const int extra = std::max(0, int(m_nameWords[icon]) - int(words.size()));
        costs[icon] = std::min(costs[icon], Cost{total[icon], extra, editsMade[icon] > 0});
    }
}

IconList TypoMatches::matches(QStringView query, int limit) const
{
    std::vector<std::string> words;
    for (const QString& word : IconSearch::queryWords(query))
        forEachWord(utf8(word), [&](std::string_view piece) { words.emplace_back(piece); });
    if (words.empty() || words.size() > mostWords || limit <= 0)
        return {};
    std::string joined;
    for (const std::string& word : words)
        joined += (joined.empty() ? "" : "-") + word;

    std::vector<Cost> costs(m_icons.size());
    matchNames(joined, costs);
    matchWords(words, costs);

    std::vector<std::uint32_t> found;
    for (std::uint32_t icon = 0; icon < costs.size(); ++icon) {
        if (costs[icon].value != unreached && costs[icon].edited)
            found.push_back(icon);
    }
    const auto kept = std::min(found.size(), static_cast<std::size_t>(limit));
    // Equal costs keep catalogue order.
    std::partial_sort(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(kept), found.end(),
                      [&](std::uint32_t a, std::uint32_t b) {
                          return costs[a] < costs[b] || (!(costs[b] < costs[a]) && a < b);
                      });
    IconList result;
    for (std::size_t i = 0; i < kept; ++i)
        result.append(m_icons[static_cast<qsizetype>(found[i])]);
    return result;
}
