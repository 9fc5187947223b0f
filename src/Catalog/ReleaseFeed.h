#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QUrl>
#include <optional>

// The program's release feed: RSS 2.0 whose items each announce one release,
// in the form software-update feeds commonly use:
//
//   <item>
//     <title>Pictray 1.2.0</title>
//     <link>…/download</link>                 the download page
//     <sparkle:shortVersionString>1.2.0</sparkle:shortVersionString>
//     <sparkle:releaseNotesLink>…</sparkle:releaseNotesLink>
//     <pubDate>Tue, 24 Nov 2026 10:00:00 +0000</pubDate>
//     <enclosure url="…" sparkle:version="1.2.0"/>
//   </item>
//
// The version is the item's shortVersionString, else its version, as an
// element or as an attribute of the enclosure; it must be a release number
// (ReleaseVersion) or the item is skipped. Links are taken only when they are
// http or https. The feed comes from the network, so its size is capped and a
// document type declaration, the door to entity tricks, is refused outright.
namespace ReleaseFeed {

struct Release {
    QString version;
    QUrl notesURL;       // empty when the item has none
    QUrl downloadURL;    // the item's link or enclosure; empty when none
    QDateTime published; // invalid when missing or unreadable
};

constexpr qint64 maxBytes = qint64(1024) * 1024;

// Every release the feed announces, in feed order. Nullopt, with *error set,
// when the bytes are not such a feed.
std::optional<QList<Release>> parse(const QByteArray& data, QString* error);

// The newest release later than `current`; nullopt when there is none.
std::optional<Release> newerThan(const QList<Release>& releases, const QString& current);

} // namespace ReleaseFeed
