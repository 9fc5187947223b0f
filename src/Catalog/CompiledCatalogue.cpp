#include "CompiledCatalogue.h"

#include <QHash>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>

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

// Opens the bytes, and then answers the icons made from them for their tags,
// paths and paints.
class Reader final : public IconContent {
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

    // The names of an icon, once every range its record gives is checked to
    // lie within the file; its tags, paths and paints are read when asked.
    std::optional<Icon::Names> names(quint32 index) const
    {
        const Record record = this->record(index);
        auto id = text(record.id);
        auto category = text(record.category);
        auto searchName = text(record.searchName);
        if (!id || !category || !searchName || !listed(record.tags, quint64(record.tagCount) * 2) ||
            !pathsListed(record.outline, record.outlineCount) ||
            !pathsListed(record.filled, record.filledCount) ||
            !within(record.paints, m_header.bytes.length))
            return std::nullopt;
        return Icon::Names{std::move(*id), std::move(*category), std::move(*searchName)};
    }

    // Each a list that is empty when an entry points outside the file.
    QStringList tags(quint32 index) const override { return tagForms(index, 0); }
    QStringList searchTags(quint32 index) const override { return tagForms(index, 1); }

    bool has(quint32 index, IconStyle style) const override
    {
        return pathRange(index, style).second >= 0;
    }

    // nullopt also when an entry points outside the file.
    std::optional<PathList> paths(quint32 index, IconStyle style) const override
    {
        const auto [first, count] = pathRange(index, style);
        if (count < 0)
            return std::nullopt;
        PathList list;
        list.reserve(count);
        for (qint32 i = 0; i < count; ++i) {
            const auto data = bytes(listEntry(first + quint32(i)));
            if (!data)
                return std::nullopt;
            list.append(QByteArray::fromRawData(data->data(), data->size()));
        }
        return list;
    }

    // Plain paths when the encoding does not read.
    PathPaints paints(quint32 index, IconStyle style) const override
    {
        IconPaints paints;
        if (!readPaints(record(index).paints, paints))
            return {};
        return style == IconStyle::filled ? paints.filled : paints.outline;
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

    // A tag (`form` 0) or its search form (1) of each tag of an icon.
    QStringList tagForms(quint32 index, quint32 form) const
    {
        const Record record = this->record(index);
        QStringList tags;
        tags.reserve(record.tagCount);
        for (quint32 i = 0; i < record.tagCount; ++i) {
            const auto tag = text(listEntry(record.tags + 2 * i + form));
            if (!tag)
                return {};
            tags.append(*tag);
        }
        return tags;
    }

    bool pathsListed(quint32 first, qint32 count) const
    {
        return count == noPaths || (count >= 0 && listed(first, quint64(count)));
    }

    std::pair<quint32, qint32> pathRange(quint32 index, IconStyle style) const
    {
        const Record record = this->record(index);
        return style == IconStyle::filled ? std::pair{record.filled, record.filledCount}
                                          : std::pair{record.outline, record.outlineCount};
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
    QList<Record> records(file.icons.size());
    // Each kind of data of all icons together: loading reads every record
    // and every tag, a drawing the paths of one icon, so what is read
    // together lies together in memory.
    for (qsizetype i = 0; i < file.icons.size(); ++i) {
        const Icon& icon = file.icons[i];
        Record& record = records[i];
        record.id = writer.text(icon.id());
        record.category = writer.text(icon.category());
        record.searchName = writer.text(icon.searchName());
        const QStringList tags = icon.tags();
        const QStringList searchTags = icon.searchTags();
        QList<Span> entries;
        for (qsizetype t = 0; t < tags.size(); ++t)
            entries << writer.text(tags[t]) << writer.text(searchTags[t]);
        record.tags = writer.list(entries);
        record.tagCount = quint32(tags.size());
    }
    const auto paths = [&writer](const std::optional<PathList>& list, quint32& first,
                                 qint32& count) {
        count = list ? qint32(list->size()) : noPaths;
        QList<Span> spans;
        for (const QByteArray& path : list.value_or(PathList()))
            spans.append(writer.bytes(path));
        first = writer.list(spans);
    };
    for (qsizetype i = 0; i < file.icons.size(); ++i) {
        paths(file.icons[i].outline(), records[i].outline, records[i].outlineCount);
        paths(file.icons[i].filled(), records[i].filled, records[i].filledCount);
    }
    for (qsizetype i = 0; i < file.icons.size(); ++i) {
        const Icon& icon = file.icons[i];
        records[i].paints =
            writer.paints({icon.paints(IconStyle::outline), icon.paints(IconStyle::filled)});
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
        if (reader->id(i) != name)
            continue;
        auto names = reader->names(i);
        return names
                   ? Icon::inContent(std::move(*names), std::make_shared<const Reader>(*reader), i)
                   : Icon();
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
    const auto content = std::make_shared<const Reader>(*reader);
    file.icons.reserve(reader->iconCount());
    for (quint32 i = 0; i < reader->iconCount(); ++i) {
        auto names = reader->names(i);
        if (!names) {
            fail(error, QStringLiteral("icon %1 points outside the file").arg(i));
            return std::nullopt;
        }
        file.icons.append(Icon::inContent(std::move(*names), content, i));
    }
    return file;
}

} // namespace CompiledCatalogue
