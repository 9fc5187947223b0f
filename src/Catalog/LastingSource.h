#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>
#include <string_view>

// A catalogue file whose bytes stay where they are until the program ends
// (the one compiled in). Text decoded from it that it also holds verbatim,
// as path data always is, becomes a view of those bytes instead of a copy:
// megabytes less to copy on each start and to keep resident.
class LastingSource {
public:
    explicit LastingSource(QByteArrayView bytes) : m_bytes(bytes) {}

    // `text` as a view into the source, or nullopt where the source holds it
    // only in another spelling (escaped). Texts asked for in file order are
    // each found by a short search onward from the previous one.
    std::optional<QByteArray> view(std::string_view text);

private:
    QByteArrayView m_bytes;
    qsizetype m_searchFrom = 0;
};
