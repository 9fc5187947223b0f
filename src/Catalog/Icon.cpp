#include "Icon.h"

#include <algorithm>

namespace {

// Most names and tags are lower-case ASCII already: then the lower-cased
// string is the same string, shared rather than converted.
QString lowerCased(const QString& text)
{
    const bool plain = std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.unicode() < 0x80 && !(c >= u'A' && c <= u'Z');
    });
    return plain ? text : text.toLower();
}

} // namespace

Icon::Icon(QString id, QString category, QStringList tags, std::optional<PathList> outline,
           std::optional<PathList> filled, IconPaints paints)
{
    auto* data = new Data;
    data->searchName = lowerCased(id);
    data->searchTags.reserve(tags.size());
    for (const QString& tag : std::as_const(tags))
        data->searchTags.append(lowerCased(tag));
    data->id = std::move(id);
    data->category = std::move(category);
    data->tags = std::move(tags);
    takePathsAndData(data, std::move(outline), std::move(filled), std::move(paints));
}

Icon Icon::withSearchForms(Names names, std::optional<PathList> outline,
                           std::optional<PathList> filled, IconPaints paints)
{
    Icon icon;
    auto* data = new Data;
    data->id = std::move(names.id);
    data->category = std::move(names.category);
    data->tags = std::move(names.tags);
    data->searchName = std::move(names.searchName);
    data->searchTags = std::move(names.searchTags);
    icon.takePathsAndData(data, std::move(outline), std::move(filled), std::move(paints));
    return icon;
}

void Icon::takePathsAndData(Data* data, std::optional<PathList> outline,
                            std::optional<PathList> filled, IconPaints paints)
{
    data->outline = std::move(outline);
    data->filled = std::move(filled);
    if (!paints.isEmpty())
        data->paints = std::make_shared<const IconPaints>(std::move(paints));
    d = QExplicitlySharedDataPointer<const Data>(data);
}

const PathList* Icon::paths(IconStyle style) const
{
    const auto& list = style == IconStyle::filled ? d->filled : d->outline;
    return list ? &*list : nullptr;
}

const PathPaints& Icon::paints(IconStyle style) const
{
    static const PathPaints plain;
    if (!d->paints)
        return plain;
    return style == IconStyle::filled ? d->paints->filled : d->paints->outline;
}

QString Icon::tagLine() const
{
    QStringList shown;
    for (const QString& tag : d->tags) {
        if (tag == d->id)
            continue;
        shown.append(tag);
        if (shown.size() == 4)
            break;
    }
    return shown.isEmpty() ? d->category : shown.join(QStringLiteral(" \u00B7 "));
}

QString Icon::pascalName() const
{
    QString result;
    result.reserve(d->id.size());
    for (const QStringView piece : QStringView(d->id).split(u'-', Qt::SkipEmptyParts)) {
        // Upper-case the first character only (a surrogate pair counts as one).
        const qsizetype first = piece.first().isHighSurrogate() && piece.size() > 1 ? 2 : 1;
        result += piece.first(first).toString().toUpper();
        result += piece.sliced(first);
    }
    return result;
}
