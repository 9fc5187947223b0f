#include "PackageConverter.h"

#include "CatalogueCodec.h"
#include "IconText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace PackageConverter {
namespace {

std::optional<QJsonObject> parseObject(QByteArrayView data, QString* error)
{
    QJsonParseError parseError{};
    const QJsonDocument doc = QJsonDocument::fromJson(data.toByteArray(), &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        if (error)
            *error = QStringLiteral("not valid JSON (%1 at offset %2)")
                         .arg(parseError.errorString())
                         .arg(parseError.offset);
        return std::nullopt;
    }
    if (!doc.isObject()) {
        if (error)
            *error = QStringLiteral("not a JSON object");
        return std::nullopt;
    }
    return doc.object();
}

// The paint attributes of one path element, in the node file's order.
PathPaint paintOf(const QJsonObject& attributes)
{
    PathPaint paint;
    for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it) {
        if (it.value().isString())
            paint.add(it.key().toUtf8(), it.value().toString().toUtf8());
    }
    return paint;
}

// The paths of one icon's nodes; other elements carry no path data.
NodePaths pathsOf(const QJsonArray& nodeList)
{
    NodePaths result;
    bool painted = false;
    for (const auto& node : nodeList) {
        const QJsonArray pair = node.toArray();
        if (pair.size() != 2 || pair.at(0).toString() != u"path")
            continue;
        const QJsonObject attributes = pair.at(1).toObject();
        const QJsonValue d = attributes.value(QLatin1String("d"));
        if (!d.isString())
            continue;
        result.paths.append(d.toString().toUtf8());
        result.paints.append(paintOf(attributes));
        painted = painted || !result.paints.last().isPlain();
    }
    if (!painted)
        result.paints.clear();
    return result;
}

bool readMeta(const QJsonValue& value, Meta& meta)
{
    if (!value.isObject())
        return false;
    const QJsonObject object = value.toObject();
    const QJsonValue category = object.value(QLatin1String("category"));
    if (category.isString())
        meta.category = category.toString();
    else if (!category.isUndefined() && !category.isNull())
        return false;
    const QJsonValue tags = object.value(QLatin1String("tags"));
    if (tags.isArray()) {
        for (const auto& tag : tags.toArray()) {
            // Real releases carry a stray null tag; such a tag is dropped, not fatal.
            if (tag.isString())
                meta.tags.append(tag.toString());
            else if (tag.isDouble())
                meta.tags.append(stringOrNumber(tag.toDouble()));
        }
    } else if (!tags.isUndefined() && !tags.isNull()) {
        return false;
    }
    return true;
}

// [{},{"fill":"currentColor","stroke":"none"}]: one object per path.
void appendPaints(QByteArray& out, const char* key, const PathPaints& paints)
{
    if (paints.isEmpty())
        return;
    out += key;
    out += '[';
    for (qsizetype i = 0; i < paints.size(); ++i) {
        out += i == 0 ? "{" : ",{";
        bool first = true;
        for (const PathPaint::Attribute& attribute : paints[i].attributes()) {
            if (!first)
                out += ',';
            first = false;
            CatalogueCodec::appendJsonString(out, PathPaint::text(attribute.name));
            out += ':';
            CatalogueCodec::appendJsonString(out, attribute.value);
        }
        out += '}';
    }
    out += ']';
}

void appendStringArray(QByteArray& out, const auto& items)
{
    out += '[';
    bool first = true;
    for (const auto& item : items) {
        if (!first)
            out += ',';
        first = false;
        CatalogueCodec::appendJsonString(out, item);
    }
    out += ']';
}

bool allPathData(const std::optional<PathList>& paths)
{
    return !paths || std::all_of(paths->cbegin(), paths->cend(),
                                 [](const QByteArray& d) { return IconText::isPathData(d); });
}

// What the catalogue decoder would refuse is refused here, with the reason.
bool check(const OutFile& file, QString* error)
{
    for (const OutEntry& entry : file.icons) {
        QString reason;
        if (!IconText::isName(entry.n.toUtf8()))
            reason = QStringLiteral("an icon name has characters other than a-z, 0-9 and -");
        else if (!allPathData(entry.o) || !allPathData(entry.f))
            reason = QStringLiteral("the icon \"%1\" has path data with characters that SVG "
                                    "path data does not use")
                         .arg(entry.n);
        if (!reason.isEmpty()) {
            if (error)
                *error = reason;
            return false;
        }
    }
    return true;
}

} // namespace

QString stringOrNumber(double value)
{
    char buffer[64];
    const double magnitude = std::fabs(value);
    // Plain decimals in the everyday range, exponent notation outside it.
    const bool plain = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e16);
    const auto result =
        plain ? std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed)
              : std::to_chars(buffer, buffer + sizeof buffer, value);
    QString text = QString::fromLatin1(buffer, result.ptr - buffer);
    if (plain && !text.contains(u'.'))
        text += QStringLiteral(".0");
    return text;
}

QHash<QString, NodePaths> nodes(QByteArrayView data)
{
    const auto root = parseObject(data, nullptr);
    if (!root)
        return {};
    QHash<QString, NodePaths> result;
    for (auto it = root->constBegin(); it != root->constEnd(); ++it) {
        if (!it.value().isArray())
            return {}; // not a map from name to node list at all
        result.insert(it.key(), pathsOf(it.value().toArray()));
    }
    return result;
}

std::optional<QHash<QString, Meta>> metadata(QByteArrayView data, QString* error)
{
    const auto root = parseObject(data, error);
    if (!root)
        return std::nullopt;
    QHash<QString, Meta> result;
    result.reserve(root->size());
    for (auto it = root->constBegin(); it != root->constEnd(); ++it) {
        Meta meta;
        if (!readMeta(it.value(), meta)) {
            if (error)
                *error = QStringLiteral("the entry \"%1\" is not icon metadata").arg(it.key());
            return std::nullopt;
        }
        result.insert(it.key(), meta);
    }
    return result;
}

OutFile build(const QString& version, const QHash<QString, Meta>& meta,
              const QHash<QString, NodePaths>& outline, const QHash<QString, NodePaths>& filled)
{
    QSet<QString> unique;
    for (const auto* part : {&outline, &filled}) {
        for (auto it = part->keyBegin(); it != part->keyEnd(); ++it)
            unique.insert(*it);
    }
    QStringList names(unique.cbegin(), unique.cend());
    std::sort(names.begin(), names.end());

    OutFile file{version, {}};
    file.icons.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : std::as_const(names)) {
        const auto info = meta.constFind(name);
        OutEntry entry{name, {}, {}, {}, {}};
        if (info != meta.cend()) {
            entry.c = info->category;
            entry.t = info->tags;
        }
        if (const auto o = outline.constFind(name); o != outline.cend()) {
            entry.o = o->paths;
            entry.paints.outline = o->paints;
        }
        if (const auto f = filled.constFind(name); f != filled.cend()) {
            entry.f = f->paths;
            entry.paints.filled = f->paints;
        }
        file.icons.push_back(std::move(entry));
    }
    return file;
}

QByteArray OutFile::encode() const
{
    QByteArray out;
    out.reserve(static_cast<qsizetype>(icons.size()) * 512);
    out += "{\"version\":";
    CatalogueCodec::appendJsonString(out, version);
    out += ",\"icons\":[";
    for (std::size_t i = 0; i < icons.size(); ++i) {
        const OutEntry& entry = icons[i];
        out += i == 0 ? "{\"n\":" : ",{\"n\":";
        CatalogueCodec::appendJsonString(out, entry.n);
        out += ",\"c\":";
        CatalogueCodec::appendJsonString(out, entry.c);
        out += ",\"t\":";
        appendStringArray(out, entry.t);
        if (entry.o) {
            out += ",\"o\":";
            appendStringArray(out, *entry.o);
        }
        if (entry.f) {
            out += ",\"f\":";
            appendStringArray(out, *entry.f);
        }
        appendPaints(out, ",\"oa\":", entry.paints.outline);
        appendPaints(out, ",\"fa\":", entry.paints.filled);
        out += '}';
    }
    out += "]}";
    return out;
}

std::optional<QByteArray> convert(const QString& version, QByteArrayView iconsJson,
                                  QByteArrayView outlineNodes, QByteArrayView filledNodes,
                                  QString* error)
{
    const auto meta = metadata(iconsJson, error);
    if (!meta)
        return std::nullopt;
    const OutFile file = build(version, *meta, nodes(outlineNodes), nodes(filledNodes));
    if (!check(file, error))
        return std::nullopt;
    return file.encode();
}

} // namespace PackageConverter
