#include "CatalogueCodec.h"

#include "IconText.h"

#include <algorithm>
#include <simdjson.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CatalogueCodec {
namespace {

using simdjson::dom::array;
using simdjson::dom::element;
using simdjson::dom::object;

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Strings of one decode: owned by default, or views into an arena.
struct Text {
    TextArena* arena = nullptr;
    QString string(std::string_view utf8) const
    {
        return arena ? arena->utf16(utf8) : fromUtf8(utf8);
    }
    QByteArray bytes(std::string_view text) const
    {
        return arena ? arena->bytes(text)
                     : QByteArray(text.data(), static_cast<qsizetype>(text.size()));
    }
};

bool fail(QString* error, const QString& message)
{
    if (error)
        *error = message;
    return false;
}

bool readStrings(element value, QStringList& out, const Text& text)
{
    array items;
    if (value.get_array().get(items) != simdjson::SUCCESS)
        return false;
    out.reserve(static_cast<qsizetype>(items.size()));
    for (element item : items) {
        std::string_view string;
        if (item.get_string().get(string) != simdjson::SUCCESS)
            return false;
        out.append(text.string(string));
    }
    return true;
}

// A missing key and null both mean "no such form".
bool readPaths(element value, std::optional<PathList>& out, const Text& text)
{
    if (value.is_null())
        return true;
    array items;
    if (value.get_array().get(items) != simdjson::SUCCESS)
        return false;
    PathList paths;
    paths.reserve(static_cast<qsizetype>(items.size()));
    for (element item : items) {
        std::string_view data;
        if (item.get_string().get(data) != simdjson::SUCCESS)
            return false;
        if (!IconText::isPathData(QByteArrayView(data.data(), qsizetype(data.size()))))
            return false;
        paths.append(text.bytes(data));
    }
    out = std::move(paths);
    return true;
}

// One attribute object per path. Attributes the program does not know, or
// with values it does not accept, are left out: the path then draws plain.
bool readPaints(element value, PathPaints& out)
{
    array items;
    if (value.get_array().get(items) != simdjson::SUCCESS)
        return false;
    out.clear();
    out.reserve(static_cast<qsizetype>(items.size()));
    for (element item : items) {
        object attributes;
        if (item.get_object().get(attributes) != simdjson::SUCCESS)
            return false;
        PathPaint paint;
        for (const auto attribute : attributes) {
            std::string_view text;
            if (attribute.value.get_string().get(text) == simdjson::SUCCESS) {
                paint.add(QByteArrayView(attribute.key.data(), qsizetype(attribute.key.size())),
                          QByteArrayView(text.data(), qsizetype(text.size())));
            }
        }
        out.append(std::move(paint));
    }
    return true;
}

// Paints that are not one per path belong to other path data: the file is
// inconsistent. Paints that are all plain are dropped.
bool matchPaths(PathPaints& paints, const std::optional<PathList>& paths)
{
    if (paints.isEmpty())
        return true;
    if (!paths || paths->size() != paints.size())
        return false;
    if (std::all_of(paints.cbegin(), paints.cend(), [](const PathPaint& p) { return p.isPlain(); }))
        paints.clear();
    return true;
}

// Thousands of icons share a few dozen categories: keep one string each.
class Categories {
public:
    QString intern(std::string_view text)
    {
        for (const auto& [utf8, string] : m_known) {
            if (utf8 == text)
                return string;
        }
        m_known.emplace_back(std::string(text), fromUtf8(text)); // owned: a few dozen
        return m_known.back().second;
    }

private:
    std::vector<std::pair<std::string, QString>> m_known;
};

bool readEntry(element value, Icon& icon, QString* error, qsizetype index, Categories& categories,
               const Text& text)
{
    const auto bad = [&](const char* what) {
        return fail(error, QStringLiteral("icon %1: %2").arg(index).arg(QLatin1String(what)));
    };
    object entry;
    if (value.get_object().get(entry) != simdjson::SUCCESS)
        return bad("not an object");
    std::string_view name;
    std::string_view category;
    bool hasName = false;
    bool hasCategory = false;
    bool hasTags = false;
    QStringList tags;
    std::optional<PathList> outline;
    std::optional<PathList> filled;
    IconPaints paints;
    for (const auto field : entry) {
        if (field.key == "oa" || field.key == "fa") {
            if (!readPaints(field.value, field.key[0] == 'o' ? paints.outline : paints.filled))
                return bad("path attributes are not an array of objects");
            continue;
        }
        if (field.key.size() != 1)
            continue; // unknown keys are ignored
        switch (field.key[0]) {
        case 'n':
            hasName = field.value.get_string().get(name) == simdjson::SUCCESS;
            if (!hasName)
                return bad("\"n\" is not a string");
            break;
        case 'c':
            hasCategory = field.value.get_string().get(category) == simdjson::SUCCESS;
            if (!hasCategory)
                return bad("\"c\" is not a string");
            break;
        case 't':
            tags.clear();
            hasTags = readStrings(field.value, tags, text);
            if (!hasTags)
                return bad("\"t\" is not an array of strings");
            break;
        case 'o':
            if (!readPaths(field.value, outline, text))
                return bad("\"o\" is not an array of path data");
            break;
        case 'f':
            if (!readPaths(field.value, filled, text))
                return bad("\"f\" is not an array of path data");
            break;
        default:
            break;
        }
    }
    if (!hasName || !hasCategory || !hasTags)
        return bad(!hasName ? "no \"n\"" : !hasCategory ? "no \"c\"" : "no \"t\"");
    if (!matchPaths(paints.outline, outline) || !matchPaths(paints.filled, filled))
        return bad("path attributes are not one object per path");
    if (!IconText::isName(QByteArrayView(name.data(), qsizetype(name.size()))))
        return bad("the name has characters other than a-z, 0-9 and -");
    icon = Icon(text.string(name), categories.intern(category), std::move(tags), std::move(outline),
                std::move(filled), std::move(paints));
    return true;
}

bool parseObject(simdjson::dom::parser& parser, QByteArrayView data, object& root, QString* error)
{
    element doc;
    if (const auto code = parser.parse(data.data(), static_cast<size_t>(data.size())).get(doc);
        code != simdjson::SUCCESS) {
        return fail(error, QStringLiteral("not valid JSON (%1)")
                               .arg(QLatin1String(simdjson::error_message(code))));
    }
    if (doc.get_object().get(root) != simdjson::SUCCESS)
        return fail(error, QStringLiteral("not a JSON object"));
    return true;
}

bool readVersion(object root, QString& version)
{
    std::string_view text;
    if (root["version"].get_string().get(text) != simdjson::SUCCESS)
        return false;
    version = fromUtf8(text);
    return true;
}

} // namespace

std::optional<CatalogueFile> decode(QByteArrayView data, QString* error, TextArena* arena)
{
    simdjson::dom::parser parser;
    object root;
    if (!parseObject(parser, data, root, error))
        return std::nullopt;
    CatalogueFile file;
    if (!readVersion(root, file.version)) {
        fail(error, QStringLiteral("no \"version\" string"));
        return std::nullopt;
    }
    array icons;
    if (root["icons"].get_array().get(icons) != simdjson::SUCCESS) {
        fail(error, QStringLiteral("no \"icons\" array"));
        return std::nullopt;
    }
    file.icons.reserve(static_cast<qsizetype>(icons.size()));
    qsizetype index = 0;
    Categories categories;
    const Text text{arena};
    for (element value : icons) {
        Icon icon;
        if (!readEntry(value, icon, error, index++, categories, text))
            return std::nullopt;
        file.icons.append(std::move(icon));
    }
    return file;
}

std::optional<QString> decodeVersionOnly(QByteArrayView data)
{
    simdjson::dom::parser parser;
    object root;
    QString version;
    if (!parseObject(parser, data, root, nullptr) || !readVersion(root, version))
        return std::nullopt;
    return version;
}

std::optional<QStringList> decodeNames(QByteArrayView data)
{
    // On demand: only each icon's "n" is read; the rest is skipped unparsed.
    const simdjson::padded_string json(data.data(), static_cast<size_t>(data.size()));
    simdjson::ondemand::parser parser;
    simdjson::ondemand::document document;
    simdjson::ondemand::array icons;
    if (parser.iterate(json).get(document) != simdjson::SUCCESS ||
        document["icons"].get_array().get(icons) != simdjson::SUCCESS)
        return std::nullopt;
    QStringList names;
    for (auto icon : icons) {
        std::string_view name;
        if (icon["n"].get_string().get(name) != simdjson::SUCCESS)
            return std::nullopt;
        names.append(fromUtf8(name));
    }
    return names;
}

void appendJsonString(QByteArray& out, QByteArrayView utf8)
{
    static constexpr char hex[] = "0123456789abcdef";
    out += '"';
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (byte < 0x20) {
                out += "\\u00";
                out += hex[byte >> 4];
                out += hex[byte & 0xF];
            } else {
                out += c;
            }
        }
    }
    out += '"';
}

void appendJsonString(QByteArray& out, QStringView text)
{
    appendJsonString(out, text.toUtf8());
}

} // namespace CatalogueCodec
