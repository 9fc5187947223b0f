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

// Icon paths are short decimals ("12.5", "-.75"), read in one pass that also
// gathers their digits. Up to 15 digits the digits as an integer and the
// power of ten are both exact doubles, so one division rounds correctly: the
// same value from_chars gives, at a fraction of its cost.
std::optional<double> SVGPath::Scanner::number()
{
    static constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    skipSeparators();
    const qsizetype start = m_position;
    qsizetype end = isSignAt(start) ? start + 1 : start;

    std::uint64_t digits = 0; // wraps past 19 digits, when it is no longer used
    int count = 0;
    const auto gather = [&](qsizetype index) {
        for (; isDigitAt(index); ++index, ++count)
            digits = digits * 10 + static_cast<std::uint64_t>(m_bytes[index] - '0');
        return index;
    };
    const qsizetype integerEnd = gather(end);
    bool hasDigits = integerEnd > end;
    end = integerEnd;
    int fractionDigits = 0;
    if (isAt(end, '.')) {
        // "5." is a number; "." needs a digit after it. A second "." starts
        // the next number, so "0.5.5" is 0.5 and .5.
        const qsizetype fractionEnd = gather(end + 1);
        if (hasDigits || fractionEnd > end + 1) {
            hasDigits = true;
            fractionDigits = static_cast<int>(fractionEnd - (end + 1));
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

    if (!hasExponent && count <= 15) {
        const double value = static_cast<double>(digits) / powersOfTen[fractionDigits];
        m_position = end;
        return isAt(start, '-') ? -value : value;
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
