#include "AppConfig.h"

namespace AppConfig {
namespace {

QString fromEnvironment(const char* name, const char* fallback)
{
    const QString value = qEnvironmentVariable(name);
    return value.isEmpty() ? QString::fromUtf8(fallback) : value;
}

} // namespace

QString version()
{
    return QStringLiteral(PICTRAY_VERSION);
}

QString applicationId()
{
    return QStringLiteral("app.pictray.Pictray");
}

QString build()
{
#ifdef PICTRAY_BUILD
    return QStringLiteral(PICTRAY_BUILD);
#else
    return QStringLiteral("1");
#endif
}

QUrl websiteURL()
{
    return QUrl(QStringLiteral("https://pictray.app"));
}

QUrl supportURL()
{
    return QUrl(QStringLiteral("mailto:support@pictray.app"));
}

QUrl releaseFeedURL()
{
    return QUrl(fromEnvironment("PICTRAY_RELEASE_FEED_URL", PICTRAY_DEFAULT_RELEASE_FEED_URL));
}

QUrl downloadURL()
{
    return QUrl(QStringLiteral("https://pictray.app/download"));
}

QUrl tablerURL()
{
    return QUrl(QStringLiteral("https://tabler.io/icons"));
}

QUrl iconRequestURL()
{
    return QUrl(QStringLiteral("https://github.com/tabler/tabler-icons/issues"));
}

QUrl tablerLatestURL()
{
    return QUrl(fromEnvironment("PICTRAY_LATEST_URL", PICTRAY_DEFAULT_LATEST_URL));
}

QUrl tablerFileURL(const QString& version, const QString& file)
{
    QString base = fromEnvironment("PICTRAY_CDN_URL", PICTRAY_DEFAULT_CDN_URL);
    while (base.endsWith(u'/'))
        base.chop(1);
    return QUrl(base + QStringLiteral("/npm/@tabler/icons@") + version + u'/' + file);
}

} // namespace AppConfig
