#include "TextArena.h"

#include <QStringDecoder>
#include <algorithm>

namespace {
constexpr std::size_t blockSize = std::size_t(256) * 1024;
} // namespace

TextArena& TextArena::forThisRun()
{
    static auto* arena = new TextArena; // never destroyed: strings point into it until exit
    return *arena;
}

template <typename T> T* TextArena::Blocks<T>::take(std::size_t count)
{
    if (used + count > capacity) {
        capacity = std::max(blockSize, count);
        blocks.push_back(std::make_unique_for_overwrite<T[]>(capacity));
        used = 0;
    }
    T* start = blocks.back().get() + used;
    used += count;
    return start;
}

QByteArray TextArena::bytes(std::string_view text)
{
    const QMutexLocker lock(&m_lock);
    char* out = m_bytes.take(text.size());
    std::copy(text.begin(), text.end(), out);
    return QByteArray::fromRawData(out, static_cast<qsizetype>(text.size()));
}

QString TextArena::utf16(std::string_view utf8)
{
    const QMutexLocker lock(&m_lock);
    // UTF-16 never needs more units than UTF-8 has bytes, replacement
    // characters for broken sequences included.
    auto* out = reinterpret_cast<QChar*>(m_utf16.take(utf8.size()));
    QChar* end = out;
    // Nearly all catalogue text is ASCII: widen it directly, decode the rest.
    if (std::all_of(utf8.begin(), utf8.end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
        for (const char c : utf8)
            *end++ = QChar(static_cast<char16_t>(c));
    } else {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        end = decoder.appendToBuffer(
            out, QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
    }
    // Give back what the text did not use.
    m_utf16.used -= utf8.size() - static_cast<std::size_t>(end - out);
    return QString::fromRawData(out, end - out);
}
