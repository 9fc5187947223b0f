#include "CompiledCatalogue.h"

#include <QHash>
#include <cstring>
#include <type_traits>

namespace CompiledCatalogue {
namespace {

// The bytes are read on the machine that made them (they are compiled in),
// so numbers are stored as that machine holds them; `format` read back as
// anything else (another byte order, another layout) rejects the bytes.
constexpr char magic[8] = {'P', 'i', 'c', 't', 'r', 'a', 'y', 'C'};
constexpr quint32 formatVersion = 1;
constexpr qint32 noPaths = -1;

struct Span {
    quint32 offset = 0; // texts: UTF-16 units; everything else: bytes
    quint32 length = 0;
};

struct Header {
    char magic[8];
    quint32 format;
    quint32 iconCount;
    Span version; // in the texts
    // Byte ranges of the whole.
    Span texts;   // UTF-16: names, categories, tags and their search forms
    Span bytes;   // UTF-8 path data, and the paints
    Span records; // one Record per icon
    Span lists;   // Spans: a tag and its search form each, or a path each
};

struct Record {
    Span id;
    Span category;
    Span searchName;
    quint32 tags; // first list entry, two per tag
    quint32 tagCount;
    quint32 outline; // first list entry, one per path
    qint32 outlineCount;
    quint32 filled;
    qint32 filledCount;
    Span paints; // in the bytes; empty for the plain icons
};

static_assert(std::is_trivially_copyable_v<Header> && std::is_trivially_copyable_v<Record>);

template <typename T> void append(QByteArray& out, const T& value)
{
    out.append(reinterpret_cast<const char*>(&value), sizeof value);
}

class Writer {
public:
    Span text(const QString& string)
    {
        const auto known = m_textAt.constFind(string);
        const quint32 at = known != m_textAt.cend() ? *known : addText(string);
        return {at, quint32(string.size())};
    }

    Span bytes(QByteArrayView data)
    {
        const Span span{quint32(m_bytes.size()), quint32(data.size())};
        m_bytes.append(data);
        return span;
    }

    quint32 list(const QList<Span>& spans)
    {
        const auto first = quint32(m_lists.size());
        m_lists.append(spans);
        return first;
    }

    Span paints(const IconPaints& paints)
    {
        if (paints.isEmpty())
            return {};
        QByteArray encoded;
        for (const PathPaints* style : {&paints.outline, &paints.filled}) {
            append(encoded, quint16(style->size()));
            for (const PathPaint& paint : *style) {
                encoded.append(char(paint.attributes().size()));
                for (const PathPaint::Attribute& attribute : paint.attributes()) {
                    encoded.append(char(attribute.name));
                    encoded.append(char(attribute.value.size()));
                    encoded.append(attribute.value);
                }
            }
        }
        return bytes(encoded);
    }

    QByteArray finish(Header header, const QList<Record>& records) const
    {
        QByteArray out;
        quint32 at = sizeof(Header);
        const auto place = [&at](qsizetype size) {
            const Span span{at, quint32(size)};
            at += quint32((size + 3) / 4 * 4); // each part starts 4-aligned
            return span;
        };
        header.texts = place(m_texts.size() * qsizetype(sizeof(char16_t)));
        header.bytes = place(m_bytes.size());
        header.records = place(records.size() * qsizetype(sizeof(Record)));
        header.lists = place(m_lists.size() * qsizetype(sizeof(Span)));
        append(out, header);
        const auto part = [&out](const void* data, qsizetype size) {
            out.append(static_cast<const char*>(data), size);
            out.append((4 - size % 4) % 4, '\0');
        };
        part(m_texts.constData(), m_texts.size() * qsizetype(sizeof(char16_t)));
        part(m_bytes.constData(), m_bytes.size());
        part(records.constData(), records.size() * qsizetype(sizeof(Record)));
        part(m_lists.constData(), m_lists.size() * qsizetype(sizeof(Span)));
        return out;
    }

private:
    quint32 addText(const QString& string)
    {
        const auto at = quint32(m_texts.size());
        m_texts.append(string);
        m_textAt.insert(string, at);
        return at;
    }

    QString m_texts;
    QHash<QString, quint32> m_textAt;
    QByteArray m_bytes;
    QList<Span> m_lists;
};

bool fail(QString* error, const QString& message)
{
    if (error)
        *error = message;
    return false;
}

bool within(const Span& span, quint64 size)
{
    return span.offset <= size && span.length <= size - span.offset;
}

class Reader {
public:
    explicit Reader(QByteArrayView bytes) : m_all(bytes) {}

    bool open(QString* error)
    {
        if (m_all.size() < qsizetype(sizeof(Header)))
            return fail(error, QStringLiteral("too short"));
        std::memcpy(&m_header, m_all.data(), sizeof(Header));
        if (std::memcmp(m_header.magic, magic, sizeof magic) != 0 ||
            m_header.format != formatVersion)
            return fail(error, QStringLiteral("not a compiled catalogue of this program"));
        const auto size = quint64(m_all.size());
        for (const Span* part :
             {&m_header.texts, &m_header.bytes, &m_header.records, &m_header.lists}) {
            if (!within(*part, size) || part->offset % 4 != 0)
                return fail(error, QStringLiteral("a part lies outside the file"));
        }
        if (m_header.texts.length % sizeof(char16_t) != 0 ||
            m_header.records.length != quint64(m_header.iconCount) * sizeof(Record) ||
            m_header.lists.length % sizeof(Span) != 0)
            return fail(error, QStringLiteral("a part has the wrong size"));
        m_textCount = m_header.texts.length / sizeof(char16_t);
        m_listCount = m_header.lists.length / sizeof(Span);
        return true;
    }

    quint32 iconCount() const { return m_header.iconCount; }

    std::optional<QString> version() const { return text(m_header.version); }

    std::optional<QString> id(quint32 index) const { return text(record(index).id); }

    std::optional<Icon> icon(quint32 index) const
    {
        const Record record = this->record(index);
        const auto id = text(record.id);
        const auto category = text(record.category);
        const auto searchName = text(record.searchName);
        if (!id || !category || !searchName || !listed(record.tags, quint64(record.tagCount) * 2))
            return std::nullopt;
        QStringList tags;
        QStringList searchTags;
        tags.reserve(record.tagCount);
        // Tags are lower-case already almost always: then the one list serves
        // as both, one allocation fewer per icon.
        bool searchFormsDiffer = false;
        for (quint32 i = 0; i < record.tagCount; ++i) {
            const Span tagSpan = listEntry(record.tags + 2 * i);
            const Span searchSpan = listEntry(record.tags + 2 * i + 1);
            const auto tag = text(tagSpan);
            if (!tag || !text(searchSpan))
                return std::nullopt;
            tags.append(*tag);
            searchFormsDiffer = searchFormsDiffer || searchSpan.offset != tagSpan.offset;
        }
        if (searchFormsDiffer) {
            for (quint32 i = 0; i < record.tagCount; ++i)
                searchTags.append(*text(listEntry(record.tags + 2 * i + 1)));
        } else {
            searchTags = tags;
        }
        std::optional<PathList> outline;
        std::optional<PathList> filled;
        IconPaints paints;
        if (!paths(record.outline, record.outlineCount, outline) ||
            !paths(record.filled, record.filledCount, filled) || !readPaints(record.paints, paints))
            return std::nullopt;
        return Icon::withSearchForms({*id, *category, tags, *searchName, searchTags},
                                     std::move(outline), std::move(filled), std::move(paints));
    }

private:
    // The index-th element of a part; copied out, since the bytes need not
    // be aligned for it.
    template <typename T> T element(const Span& part, quint32 index) const
    {
        T value;
        std::memcpy(&value, m_all.data() + part.offset + index * sizeof(T), sizeof(T));
        return value;
    }

    Record record(quint32 index) const { return element<Record>(m_header.records, index); }

    std::optional<QString> text(const Span& span) const
    {
        if (!within(span, m_textCount))
            return std::nullopt;
        const auto* start = reinterpret_cast<const QChar*>(m_all.data() + m_header.texts.offset);
        return QString::fromRawData(start + span.offset, qsizetype(span.length));
    }

    bool listed(quint32 first, quint64 count) const
    {
        return first <= m_listCount && count <= m_listCount - first;
    }

    Span listEntry(quint32 index) const { return element<Span>(m_header.lists, index); }

    std::optional<QByteArrayView> bytes(const Span& span) const
    {
        if (!within(span, m_header.bytes.length))
            return std::nullopt;
        return m_all.sliced(m_header.bytes.offset + span.offset, span.length);
    }

    bool paths(quint32 first, qint32 count, std::optional<PathList>& out) const
    {
        if (count == noPaths)
            return true;
        if (count < 0 || !listed(first, quint64(count)))
            return false;
        PathList list;
        list.reserve(count);
        for (qint32 i = 0; i < count; ++i) {
            const auto data = bytes(listEntry(first + quint32(i)));
            if (!data)
                return false;
            list.append(QByteArray::fromRawData(data->data(), data->size()));
        }
        out = std::move(list);
        return true;
    }

    bool readPaints(const Span& span, IconPaints& out) const
    {
        if (span.length == 0)
            return true;
        const auto data = bytes(span);
        if (!data)
            return false;
        qsizetype at = 0;
        const auto take = [&](qsizetype count) -> std::optional<QByteArrayView> {
            if (count > data->size() - at)
                return std::nullopt;
            const QByteArrayView taken = data->sliced(at, count);
            at += count;
            return taken;
        };
        for (PathPaints* style : {&out.outline, &out.filled}) {
            const auto count = take(sizeof(quint16));
            if (!count)
                return false;
            quint16 paths = 0;
            std::memcpy(&paths, count->data(), sizeof paths);
            for (quint16 i = 0; i < paths; ++i) {
                const auto attributes = take(1);
                if (!attributes)
                    return false;
                PathPaint paint;
                for (quint8 a = 0; a < quint8(attributes->front()); ++a) {
                    const auto head = take(2);
                    const auto value = head ? take(quint8(head->at(1))) : std::nullopt;
                    if (!value || quint8(head->front()) > quint8(PathPaint::Name::opacity))
                        return false;
                    paint.add(PathPaint::text(PathPaint::Name(head->front())), *value);
                }
                style->append(std::move(paint));
            }
        }
        return at == data->size();
    }

    QByteArrayView m_all;
    Header m_header{};
    quint64 m_textCount = 0;
    quint64 m_listCount = 0;
};

} // namespace

QByteArray compile(const CatalogueFile& file)
{
    Writer writer;
    Header header{};
    std::memcpy(header.magic, magic, sizeof magic);
    header.format = formatVersion;
    header.iconCount = quint32(file.icons.size());
    header.version = writer.text(file.version);
    QList<Record> records;
    records.reserve(file.icons.size());
    for (const Icon& icon : file.icons) {
        Record record{};
        record.id = writer.text(icon.id());
        record.category = writer.text(icon.category());
        record.searchName = writer.text(icon.searchName());
        QList<Span> tags;
        for (qsizetype i = 0; i < icon.tags().size(); ++i)
            tags << writer.text(icon.tags().at(i)) << writer.text(icon.searchTags().at(i));
        record.tags = writer.list(tags);
        record.tagCount = quint32(icon.tags().size());
        const auto paths = [&writer](const std::optional<PathList>& list, quint32& first,
                                     qint32& count) {
            count = list ? qint32(list->size()) : noPaths;
            QList<Span> spans;
            for (const QByteArray& path : list.value_or(PathList()))
                spans.append(writer.bytes(path));
            first = writer.list(spans);
        };
        paths(icon.outline(), record.outline, record.outlineCount);
        paths(icon.filled(), record.filled, record.filledCount);
        record.paints =
            writer.paints({icon.paints(IconStyle::outline), icon.paints(IconStyle::filled)});
        records.append(record);
    }
    return writer.finish(header, records);
}

namespace {

// Names and tags are read in place as UTF-16: the bytes must be aligned for it.
std::optional<Reader> opened(QByteArrayView bytes, QString* error)
{
    if (reinterpret_cast<quintptr>(bytes.data()) % alignof(char16_t) != 0) {
        fail(error, QStringLiteral("the bytes are not aligned"));
        return std::nullopt;
    }
    Reader reader(bytes);
    if (!reader.open(error))
        return std::nullopt;
    return reader;
}

} // namespace

std::optional<QString> version(QByteArrayView bytes)
{
    const auto reader = opened(bytes, nullptr);
    return reader ? reader->version() : std::nullopt;
}

Icon find(QByteArrayView bytes, QStringView name)
{
    const auto reader = opened(bytes, nullptr);
    if (!reader)
        return {};
    for (quint32 i = 0; i < reader->iconCount(); ++i) {
        if (reader->id(i) == name)
            return reader->icon(i).value_or(Icon());
    }
    return {};
}

std::optional<CatalogueFile> read(QByteArrayView bytes, QString* error)
{
    auto reader = opened(bytes, error);
    if (!reader)
        return std::nullopt;
    CatalogueFile file;
    const auto version = reader->version();
    if (!version) {
        fail(error, QStringLiteral("no version"));
        return std::nullopt;
    }
    file.version = *version;
    file.icons.reserve(reader->iconCount());
    for (quint32 i = 0; i < reader->iconCount(); ++i) {
        auto icon = reader->icon(i);
        if (!icon) {
            fail(error, QStringLiteral("icon %1 points outside the file").arg(i));
            return std::nullopt;
        }
        file.icons.append(std::move(*icon));
    }
    return file;
}

} // namespace CompiledCatalogue
