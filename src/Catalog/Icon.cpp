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

// The content of one icon decoded from JSON, which it holds itself.
class HeldContent final : public IconContent {
public:
    HeldContent(QStringList tags, std::optional<PathList> outline, std::optional<PathList> filled,
                IconPaints paints)
        : m_tags(std::move(tags)), m_outline(std::move(outline)), m_filled(std::move(filled)),
          m_paints(std::move(paints))
    {
        m_searchTags.reserve(m_tags.size());
        for (const QString& tag : std::as_const(m_tags))
            m_searchTags.append(lowerCased(tag));
    }

    QStringList tags(quint32 /*index*/) const override { return m_tags; }
    QStringList searchTags(quint32 /*index*/) const override { return m_searchTags; }
    bool has(quint32 /*index*/, IconStyle style) const override { return of(style).has_value(); }
    std::optional<PathList> paths(quint32 /*index*/, IconStyle style) const override
    {
        return of(style);
    }
    PathPaints paints(quint32 /*index*/, IconStyle style) const override
    {
        return style == IconStyle::filled ? m_paints.filled : m_paints.outline;
    }

private:
    const std::optional<PathList>& of(IconStyle style) const
    {
        return style == IconStyle::filled ? m_filled : m_outline;
    }

    QStringList m_tags;
    QStringList m_searchTags;
    std::optional<PathList> m_outline;
    std::optional<PathList> m_filled;
    IconPaints m_paints;
};

} // namespace

Icon::Icon(QString id, QString category, QStringList tags, std::optional<PathList> outline,
           std::optional<PathList> filled, IconPaints paints)
{
    QString searchName = lowerCased(id);
    *this = inContent({std::move(id), std::move(category), std::move(searchName)},
                      std::make_shared<const HeldContent>(std::move(tags), std::move(outline),
                                                          std::move(filled), std::move(paints)),
                      0);
}

Icon Icon::inContent(Names names, std::shared_ptr<const IconContent> content, quint32 index)
{
    auto* data = new Data;
    data->names = std::move(names);
    data->content = std::move(content);
    data->index = index;
    Icon icon;
    icon.d = QExplicitlySharedDataPointer<const Data>(data);
    return icon;
}

QString Icon::tagLine() const
{
    QStringList shown;
    const QStringList all = tags();
    for (const QString& tag : all) {
        if (tag == id())
            continue;
        shown.append(tag);
        if (shown.size() == 4)
            break;
    }
    return shown.isEmpty() ? category() : shown.join(QStringLiteral(" \u00B7 "));
}

QString Icon::pascalName() const
{
    QString result;
    result.reserve(id().size());
    for (const QStringView piece : QStringView(id()).split(u'-', Qt::SkipEmptyParts)) {
        // Upper-case the first character only (a surrogate pair counts as one).
        const qsizetype first = piece.first().isHighSurrogate() && piece.size() > 1 ? 2 : 1;
        result += piece.first(first).toString().toUpper();
        result += piece.sliced(first);
    }
    return result;
}
