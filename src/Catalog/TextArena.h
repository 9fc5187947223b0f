#pragma once

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <memory>
#include <string_view>
#include <vector>

// The text of the catalogues loaded in this run: names, tags and path data
// are tens of thousands of small strings, and one allocation each makes
// loading several times slower. The arena copies them into a few large
// blocks and hands out strings that point there. Blocks are never freed, so
// such a string stays valid wherever it is copied to; an icon set update
// adds its text (about 3 MB) once.
class TextArena {
public:
    static TextArena& forThisRun();

    QByteArray bytes(std::string_view text);
    QString utf16(std::string_view utf8);

private:
    template <typename T> struct Blocks {
        std::vector<std::unique_ptr<T[]>> blocks;
        std::size_t used = 0;
        std::size_t capacity = 0;
        T* take(std::size_t count);
    };

    QMutex m_lock;
    Blocks<char> m_bytes;
    Blocks<char16_t> m_utf16; // not QChar, whose constructor would clear each block first
};
