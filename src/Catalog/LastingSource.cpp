#include "LastingSource.h"

#include <cstring>

std::optional<QByteArray> LastingSource::view(std::string_view text)
{
    if (text.empty())
        return QByteArray();
    // Any occurrence of the same bytes will do. A text's first occurrence from
    // the previous one's onward never lies past its own place in the file, so
    // searching onward finds every text the file holds verbatim.
    const char* start = m_bytes.data() + m_searchFrom;
    const auto remaining = static_cast<std::size_t>(m_bytes.size() - m_searchFrom);
    const void* found = memmem(start, remaining, text.data(), text.size());
    if (!found)
        return std::nullopt;
    const auto* at = static_cast<const char*>(found);
    m_searchFrom = (at - m_bytes.data()) + static_cast<qsizetype>(text.size());
    return QByteArray::fromRawData(at, static_cast<qsizetype>(text.size()));
}
