#include "ReleaseFeed.h"

#include "ReleaseVersion.h"

#include <QXmlStreamReader>

namespace ReleaseFeed {
namespace {

// The update framework's elements and attributes go by their prefix's local
// names; the namespace is not checked, as feeds spell it in several ways.
bool isVersionName(QStringView name)
{
    return name == u"shortVersionString" || name == u"version";
}

QUrl webLink(const QString& text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const QString scheme = url.scheme();
    return url.isValid() && (scheme == u"https" || scheme == u"http") && !url.host().isEmpty()
               ? url
               : QUrl();
}

// What one <item> says; the short version wins over the build version.
struct ItemFields {
    QString shortVersion;
    QString version;
    QUrl notes;
    QUrl link;
    QUrl enclosure;
    QDateTime published;

    void take(QStringView name, const QString& value)
    {
        if (name == u"shortVersionString")
            shortVersion = value.trimmed();
        else if (name == u"version")
            version = value.trimmed();
    }

    std::optional<Release> release() const
    {
        const QString number = shortVersion.isEmpty() ? version : shortVersion;
        if (!ReleaseVersion::parse(number))
            return std::nullopt;
        return Release{number, notes, link.isEmpty() ? enclosure : link, published};
    }
};

void readItem(QXmlStreamReader& xml, QList<Release>& releases)
{
    ItemFields item;
    while (xml.readNextStartElement()) {
        const QString prefix = xml.prefix().toString();
        const QString name = xml.name().toString();
        if (name == u"enclosure") {
            const QXmlStreamAttributes attributes = xml.attributes();
            item.enclosure = webLink(attributes.value(QStringLiteral("url")).toString());
            for (const QXmlStreamAttribute& attribute : attributes) {
                if (!attribute.prefix().isEmpty() && isVersionName(attribute.name()))
                    item.take(attribute.name(), attribute.value().toString());
            }
            xml.skipCurrentElement();
        } else if (!prefix.isEmpty() && isVersionName(name)) {
            item.take(name, xml.readElementText(QXmlStreamReader::SkipChildElements));
        } else if (!prefix.isEmpty() && name == u"releaseNotesLink") {
            item.notes = webLink(xml.readElementText(QXmlStreamReader::SkipChildElements));
        } else if (prefix.isEmpty() && name == u"link") {
            item.link = webLink(xml.readElementText(QXmlStreamReader::SkipChildElements));
        } else if (prefix.isEmpty() && name == u"pubDate") {
            item.published = QDateTime::fromString(
                xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed(),
                Qt::RFC2822Date);
        } else {
            xml.skipCurrentElement();
        }
    }
    if (auto release = item.release())
        releases.append(std::move(*release));
}

} // namespace

std::optional<QList<Release>> parse(const QByteArray& data, QString* error)
{
    const auto refuse = [error](const QString& why) {
        if (error)
            *error = why;
        return std::nullopt;
    };
    if (data.size() > maxBytes)
        return refuse(QStringLiteral("The release feed is too large."));
    QXmlStreamReader xml(data);
    QList<Release> releases;
    bool inRss = false;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::DTD:
            return refuse(QStringLiteral("The release feed declares a document type; refused."));
        case QXmlStreamReader::StartElement:
            if (!inRss && xml.name() != u"rss")
                return refuse(QStringLiteral("The release feed is not an RSS feed."));
            inRss = true;
            if (xml.name() == u"item")
                readItem(xml, releases);
            break;
        default:
            break;
        }
    }
    if (xml.hasError())
        return refuse(QStringLiteral("The release feed is damaged: %1 (line %2).")
                          .arg(xml.errorString())
                          .arg(xml.lineNumber()));
    if (!inRss)
        return refuse(QStringLiteral("The release feed is empty."));
    return releases;
}

std::optional<Release> newerThan(const QList<Release>& releases, const QString& current)
{
    // A running version that is not a release number is older than any release.
    const auto running = ReleaseVersion::parse(current);
    std::optional<Release> newest;
    std::optional<ReleaseVersion> newestVersion;
    for (const Release& release : releases) {
        const auto version = ReleaseVersion::parse(release.version);
        if (!version || (running && version->compare(*running) <= 0))
            continue;
        if (!newestVersion || version->compare(*newestVersion) > 0) {
            newest = release;
            newestVersion = version;
        }
    }
    return newest;
}

} // namespace ReleaseFeed
