#pragma once

#include "SVGPath.h"

// Reads tokens straight from the bytes; nothing is copied unless an error
// message needs the text. number() and flag() return nothing after recording
// the error, which error() then holds.
class SVGPath::Scanner {
public:
    explicit Scanner(QByteArrayView bytes) : m_bytes(bytes) {}

    qsizetype position() const { return m_position; }
    bool atEnd() const { return m_position >= m_bytes.size(); }
    char current() const { return m_bytes[m_position]; }
    void advance() { ++m_position; }

    void skipSeparators();
    std::optional<double> number();
    std::optional<bool> flag();

    std::nullopt_t fail(qsizetype offset, QString message)
    {
        m_error = ParseError{offset, std::move(message)};
        return std::nullopt;
    }
    const std::optional<ParseError>& error() const { return m_error; }

private:
    bool isAt(qsizetype index, char byte) const
    {
        return index < m_bytes.size() && m_bytes[index] == byte;
    }
    bool isSignAt(qsizetype index) const { return isAt(index, '+') || isAt(index, '-'); }
    bool isDigitAt(qsizetype index) const
    {
        return index < m_bytes.size() && m_bytes[index] >= '0' && m_bytes[index] <= '9';
    }
    qsizetype skipDigits(qsizetype index) const
    {
        while (isDigitAt(index))
            ++index;
        return index;
    }

    QByteArrayView m_bytes;
    qsizetype m_position = 0;
    std::optional<ParseError> m_error;
};
