#pragma once

#include <QString>
#include <QUrl>

namespace AppConfig {

QString version();

// Answers {"version": ...} with the newest icon set release.
// PICTRAY_LATEST_URL overrides the built-in address.
QUrl tablerLatestURL();

// One file of one icon set release: base + "/npm/@tabler/icons@" + version + "/" + file.
// PICTRAY_CDN_URL overrides the built-in base.
QUrl tablerFileURL(const QString& version, const QString& file);

} // namespace AppConfig
