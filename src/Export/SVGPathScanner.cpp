#include "SVGPathScanner.h"

#include <QLatin1String>
#include <charconv>

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
    if (isAt(end, 'e') || isAt(end, 'E')) {
        const qsizetype exponentDigits = isSignAt(end + 1) ? end + 2 : end + 1;
        const qsizetype exponentEnd = skipDigits(exponentDigits);
        if (exponentEnd > exponentDigits)
            end = exponentEnd;
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
