#include "SVGPathScanner.h"

#include <QLatin1String>
#include <charconv>
#include <cstdint>

void SVGPath::Scanner::skipSeparators()
{
    while (!atEnd()) {
        switch (current()) {
        case '\t':
        case '\n':
        case '\r':
        case ' ':
        case ',':
            advance();
            break;
        default:
            return;
        }
    }
}

// Icon paths are short decimals ("12.5", "-.75"). Up to 15 digits the
// digits as an integer and the power of ten are both exact doubles, so one
// division rounds correctly: the same value from_chars gives, at a fraction
// of its cost.
std::optional<double> SVGPath::Scanner::shortDecimal(qsizetype start, qsizetype end) const
{
    static constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    qsizetype at = isSignAt(start) ? start + 1 : start;
    std::uint64_t digits = 0;
    int count = 0;
    int fractionDigits = 0;
    bool inFraction = false;
    for (; at < end; ++at) {
        const char byte = m_bytes[at];
        if (byte == '.') {
            inFraction = true;
            continue;
        }
        if (++count > 15)
            return std::nullopt;
        digits = digits * 10 + static_cast<std::uint64_t>(byte - '0');
        fractionDigits += inFraction ? 1 : 0;
    }
    const double value = static_cast<double>(digits) / powersOfTen[fractionDigits];
    return isAt(start, '-') ? -value : value;
}

std::optional<double> SVGPath::Scanner::number()
{
    skipSeparators();
    const qsizetype start = m_position;
    qsizetype end = isSignAt(start) ? start + 1 : start;

    const qsizetype integerEnd = skipDigits(end);
    bool hasDigits = integerEnd > end;
    end = integerEnd;
    if (isAt(end, '.')) {
        // "5." is a number; "." needs a digit after it. A second "." starts
        // the next number, so "0.5.5" is 0.5 and .5.
        const qsizetype fractionEnd = skipDigits(end + 1);
        if (hasDigits || fractionEnd > end + 1) {
            hasDigits = true;
            end = fractionEnd;
        }
    }
    if (!hasDigits)
        return fail(start, QStringLiteral("expected number"));

    // An "e" without digits after it is left for the next token.
    bool hasExponent = false;
    if (isAt(end, 'e') || isAt(end, 'E')) {
        const qsizetype exponentDigits = isSignAt(end + 1) ? end + 2 : end + 1;
        const qsizetype exponentEnd = skipDigits(exponentDigits);
        if (exponentEnd > exponentDigits) {
            end = exponentEnd;
            hasExponent = true;
        }
    }

    if (!hasExponent) {
        if (const auto value = shortDecimal(start, end)) {
            m_position = end;
            return value;
        }
    }

    // from_chars is locale-independent and stops at `last`, but takes no "+".
    const char* first = m_bytes.data() + (isAt(start, '+') ? start + 1 : start);
    const char* last = m_bytes.data() + end;
    double value = 0;
    const auto [stop, status] = std::from_chars(first, last, value);
    if (status != std::errc() || stop != last) {
        const QByteArrayView text = m_bytes.sliced(start, end - start);
        return fail(start, QStringLiteral("bad number ") + QLatin1String(text.data(), text.size()));
    }
    m_position = end;
    return value;
}

std::optional<bool> SVGPath::Scanner::flag()
{
    skipSeparators();
    if (atEnd())
        return fail(m_position, QStringLiteral("expected flag"));
    const char byte = current();
    if (byte != '0' && byte != '1')
        return fail(m_position, QStringLiteral("expected arc flag"));
    advance();
    return byte == '1';
}
