#include "IconSearch.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <string_view>
#include <utility>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// Which bytes and byte pairs occur in a text, hashed into 64 + 256 bits.
// An entry lacking a bit of a word cannot contain the word, which rules out
// most icons before any of their bytes are compared.
IconSearch::Signature signature(std::string_view text)
{
    IconSearch::Signature bits{};
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        bits[0] |= quint64(1) << (byte % 64);
        if (i + 1 < text.size()) {
            const unsigned pair = (byte * 31u + static_cast<unsigned char>(text[i + 1])) % 256u;
            bits[1 + pair / 64] |= quint64(1) << (pair % 64);
        }
    }
    return bits;
}

bool covers(const IconSearch::Signature& entry, const IconSearch::Signature& wanted)
{
    quint64 missing = 0;
    for (std::size_t i = 0; i < entry.size(); ++i)
        missing |= wanted[i] & ~entry[i];
    return missing == 0;
}

// Names and tags are a few dozen bytes: a plain loop beats memchr+memcmp
// calls, which dominate when the first byte is common.
std::size_t find(std::string_view hay, std::string_view needle, std::size_t from = 0)
{
    const std::size_t n = needle.size();
    if (n > hay.size())
        return std::string_view::npos;
    const char first = needle.front();
    const char* p = hay.data();
    for (std::size_t i = from, last = hay.size() - n; i <= last; ++i) {
        if (p[i] != first)
            continue;
        std::size_t k = 1;
        while (k < n && p[i + k] == needle[k])
            ++k;
        if (k == n)
            return i;
    }
    return std::string_view::npos;
}

bool contains(std::string_view hay, std::string_view needle)
{
    return find(hay, needle) != std::string_view::npos;
}

// The index text ends in this many spare bytes, so a scan may read a whole
// block past the end of the last entry.
constexpr std::size_t indexPadding = 32;

// find() for text inside the index: compares the needle's first and last
// bytes at 16 places at once and checks the middle only where both agree.
// Short words ("ar") match most entries somewhere, so this is where a
// search spends its time.
std::size_t findInIndex(std::string_view hay, std::string_view needle, std::size_t from = 0)
{
#if defined(__SSE2__)
    const std::size_t n = needle.size();
    if (n > hay.size() || from > hay.size() - n)
        return std::string_view::npos;
    const std::size_t last = hay.size() - n;
    const char* p = hay.data();
    const __m128i first = _mm_set1_epi8(needle.front());
    const __m128i lastByte = _mm_set1_epi8(needle.back());
    for (std::size_t i = from; i <= last; i += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i + n - 1));
        auto mask = static_cast<unsigned>(_mm_movemask_epi8(
            _mm_and_si128(_mm_cmpeq_epi8(a, first), _mm_cmpeq_epi8(b, lastByte))));
        if (last - i < 15)
            mask &= (1u << (last - i + 1)) - 1;
        for (; mask != 0; mask &= mask - 1) {
            const std::size_t at = i + static_cast<std::size_t>(__builtin_ctz(mask));
            if (n <= 2 || std::memcmp(p + at + 1, needle.data() + 1, n - 2) == 0)
                return at;
        }
    }
    return std::string_view::npos;
#else
    return find(hay, needle, from);
#endif
}

std::string_view view(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// Appends text as UTF-8 without a temporary for the common ASCII case. Tags
// are kept one per line, so a line break inside one becomes a space.
void appendIndexText(std::string& out, QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c >= 0x80) {
            const QByteArray rest = text.sliced(i).toUtf8().replace('\n', ' ');
            out.append(rest.constData(), static_cast<std::size_t>(rest.size()));
            return;
        }
        out.push_back(c == u'\n' ? ' ' : static_cast<char>(c));
    }
}

} // namespace

IconSearch::IconSearch(const IconList& icons) : m_icons(icons)
{
    m_entries.reserve(static_cast<std::size_t>(icons.size()));
    m_text.reserve(static_cast<std::size_t>(icons.size()) * 96);
    m_signatures.reserve(static_cast<std::size_t>(icons.size()));
    m_letters.reserve(static_cast<std::size_t>(icons.size()));
    m_entryOf.reserve(icons.size());
    for (const Icon& icon : icons) {
        const auto start = static_cast<std::uint32_t>(m_text.size());
        appendIndexText(m_text, icon.searchName());
        const auto nameEnd = static_cast<std::uint32_t>(m_text.size());
        for (const QString& tag : icon.searchTags()) {
            m_text.push_back('\n');
            appendIndexText(m_text, tag);
        }
        const auto end = static_cast<std::uint32_t>(m_text.size());
        m_entries.push_back({start, nameEnd, end});
        const std::string_view text(m_text);
        m_signatures.push_back(signature(text.substr(start, end - start)));
        m_letters.push_back(LetterSets::of(text.substr(start, nameEnd - start),
                                           text.substr(nameEnd, end - nameEnd)));
        m_entryOf.insert(icon.identity(), static_cast<std::uint32_t>(m_entries.size() - 1));
    }
    m_text.append(indexPadding, '\0');
    // The estimate above is generous; the index lives as long as the program.
    m_text.shrink_to_fit();
}

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

std::string_view IconSearch::name(const Entry& entry) const
{
    return std::string_view(m_text.data() + entry.start, entry.nameEnd - entry.start);
}

template <typename F> void IconSearch::forEachTag(const Entry& entry, F&& f) const
{
    const std::string_view all(m_text.data(), static_cast<std::size_t>(m_text.size()));
    std::size_t at = entry.nameEnd;
    while (at < entry.end) {
        const std::size_t tagStart = at + 1;
        std::size_t tagEnd = all.find('\n', tagStart);
        if (tagEnd == std::string_view::npos || tagEnd > entry.end)
            tagEnd = entry.end;
        if (!f(all.substr(tagStart, tagEnd - tagStart)))
            return;
        at = tagEnd;
    }
}

// The rules rank name matches above tag matches and, within each, an exact
// match above a prefix above a segment start above any substring, so a
// word's score is the best rule any of its occurrences meets: one pass over
// the entry finds them all.
int IconSearch::scoreWord(std::uint32_t slot, const Word& word) const
{
    const std::string_view text = word.text;
    if (text.size() == 1 && LetterSets::covers(text.front()))
        return m_letters[slot].score(text.front());
    const Entry& entry = m_entries[slot];
    const std::string_view iconName(m_text.data() + entry.start, entry.nameEnd - entry.start);
    int best = 0;
    for (std::size_t at = findInIndex(iconName, text); at != std::string_view::npos;
         at = findInIndex(iconName, text, at + 1)) {
        if (at == 0)
            return iconName.size() == text.size() ? 100 : 80;
        best = std::max(best, !word.hyphenated && iconName[at - 1] == '-' ? 70 : 50);
        if (best == 70)
            break; // only the start of the name ranks higher, and that was the first find
    }
    if (best > 0)
        return best; // any name match outranks every tag match

    const std::string_view tags(m_text.data() + entry.nameEnd, entry.end - entry.nameEnd);
    for (std::size_t at = findInIndex(tags, text); at != std::string_view::npos;
         at = findInIndex(tags, text, at + 1)) {
        const std::size_t after = at + text.size();
        const bool tagStart = tags[at - 1] == '\n'; // tags always begin after a line break
        const bool tagEnd = after == tags.size() || tags[after] == '\n';
        best = std::max(best, tagStart ? (tagEnd ? 40 : 30) : 15);
        if (best == 40)
            break;
    }
    return best;
}

std::vector<std::uint32_t> IconSearch::slotsOf(const IconList& icons) const
{
    std::vector<std::uint32_t> entryIds;
    // The catalogue's own list, as the picker's All tab passes it.
    if (icons.constData() == m_icons.constData() && icons.size() == m_icons.size()) {
        entryIds.resize(static_cast<std::size_t>(icons.size()));
        for (std::uint32_t i = 0; i < entryIds.size(); ++i)
            entryIds[i] = i;
        return entryIds;
    }
    entryIds.reserve(static_cast<std::size_t>(icons.size()));
    for (const Icon& icon : icons) {
        const auto it = m_entryOf.constFind(icon.identity());
        if (it == m_entryOf.cend())
            return {};
        entryIds.push_back(*it);
    }
    return entryIds;
}

IconList IconSearch::search(QStringView query, const IconList& icons) const
{
    const QStringList words = queryWords(query);
    if (words.isEmpty())
        return icons;
    const std::vector<std::uint32_t> entryIds = slotsOf(icons);
    if (entryIds.size() != static_cast<std::size_t>(icons.size()))
        return IconSearch(icons).search(query, icons);

    std::vector<QByteArray> utf8Words;
    std::vector<Word> prepared;
    Signature wanted{};
    for (const QString& word : words) {
        utf8Words.push_back(word.toUtf8());
        const std::string_view text = view(utf8Words.back());
        // Lines separate tags here: a word with a line break matches nothing.
        if (contains(text, "\n"))
            return {};
        prepared.push_back({text, contains(text, "-")});
        const Signature bits = signature(text);
        for (std::size_t i = 0; i < wanted.size(); ++i)
            wanted[i] |= bits[i];
    }
    const QByteArray joinedBytes = words.join(u'-').toUtf8();
    const std::string_view joined = view(joinedBytes);

    std::vector<Hit> hits;
    hits.reserve(entryIds.size());
    for (std::uint32_t position = 0; position < entryIds.size(); ++position) {
        const std::uint32_t slot = entryIds[position];
        // A word the entry lacks fails the icon; the fallback through the
        // joined query cannot save it then, since the joined query holds
        // every word.
        if (!covers(m_signatures[slot], wanted))
            continue;
        const Entry& entry = m_entries[slot];
        const std::string_view iconName = name(entry);
        int score = 0;
        for (const Word& word : prepared) {
            const int wordScore = scoreWord(slot, word);
            if (wordScore == 0) {
                score = contains(iconName, joined) ? 60 : -1;
                break;
            }
            score += wordScore;
        }
        if (score < 0)
            continue;
        if (iconName == joined)
            score += 1000;
        hits.push_back({score, position});
    }
    return sortedByScore(hits, icons);
}

// Scores are small integers: a counting sort by score, highest first, keeps
// the input order within a score without comparing positions.
IconList IconSearch::sortedByScore(const std::vector<Hit>& hits, const IconList& icons)
{
    int top = 0;
    for (const Hit& hit : hits)
        top = std::max(top, hit.score);
    std::vector<std::uint32_t> start(static_cast<std::size_t>(top) + 2, 0);
    for (const Hit& hit : hits)
        ++start[static_cast<std::size_t>(top - hit.score) + 1];
    for (std::size_t i = 1; i < start.size(); ++i)
        start[i] += start[i - 1];

    IconList result(static_cast<qsizetype>(hits.size()));
    Icon* out = result.data();
    for (const Hit& hit : hits)
        out[start[static_cast<std::size_t>(top - hit.score)]++] = icons[hit.position];
    return result;
}

IconSearch::NearMatches IconSearch::nearMatches(QStringView query, int limit) const
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
            const QByteArray prefixBytes = prefix.toUtf8();
            const std::string_view needle = view(prefixBytes);
            IconList found;
            for (std::size_t slot = 0; slot < m_entries.size() && found.size() < wanted; ++slot) {
                const Entry& entry = m_entries[slot];
                bool hit = contains(name(entry), needle);
                if (!hit) {
                    forEachTag(entry, [&](std::string_view tag) {
                        hit = tag.starts_with(needle);
                        return !hit;
                    });
                }
                if (hit)
                    found.append(m_icons[static_cast<qsizetype>(slot)]);
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
