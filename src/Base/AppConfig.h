#pragma once

#include <QString>
#include <QUrl>

namespace AppConfig {

QString version();
// The build number shown beside the version: PICTRAY_BUILD at compile time, "1" without it.
QString build();

// "app.pictray.Pictray": the desktop file, the autostart entry and every
// other place the desktop knows the program by.
QString applicationId();

// The links the windows show. The hosts are deployment settings.
QUrl websiteURL();
QUrl supportURL(); // a mailto: address
QUrl tablerURL();
QUrl iconRequestURL();

// Answers {"version": ...} with the newest icon set release.
// PICTRAY_LATEST_URL overrides the built-in address.
QUrl tablerLatestURL();

// One file of one icon set release: base + "/npm/@tabler/icons@" + version + "/" + file.
// PICTRAY_CDN_URL overrides the built-in base.
QUrl tablerFileURL(const QString& version, const QString& file);

// The program's release feed (RSS, see Catalog/ReleaseFeed.h), asked by
// "Check for Updates…". PICTRAY_RELEASE_FEED_URL overrides the built-in address.
QUrl releaseFeedURL();
// Where new versions are offered when the feed names no download page.
QUrl downloadURL();

} // namespace AppConfig
