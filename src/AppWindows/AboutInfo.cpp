#include "AboutInfo.h"

#include "Base/AppConfig.h"
#include "Base/PlatformWords.h"
#include "Catalog/IconLibrary.h"

#include <QFile>

AboutInfo::AboutInfo(const IconLibrary& library, Rendition rendition, QObject* parent)
    : QObject(parent), m_library(library), m_rendition(rendition)
{
    connect(&library, &IconLibrary::catalogueChanged, this, &AboutInfo::catalogueVersionChanged);
}

QString AboutInfo::version() const
{
    return AppConfig::version();
}

QString AboutInfo::build() const
{
    return AppConfig::build();
}

QString AboutInfo::tagline() const
{
    return PlatformWords::text(PlatformWords::Text::tagline, m_rendition);
}

QString AboutInfo::livesInTray() const
{
    return PlatformWords::text(PlatformWords::Text::livesInTray, m_rendition);
}

QString AboutInfo::catalogueVersion() const
{
    return m_library.version();
}

int AboutInfo::iconCount() const
{
    return m_library.iconCount();
}

QString AboutInfo::licenceText()
{
    QFile file(QStringLiteral(":/Pictray/licences/tabler-icons-LICENSE"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

QUrl AboutInfo::websiteURL() const
{
    return AppConfig::websiteURL();
}

QUrl AboutInfo::supportURL() const
{
    return AppConfig::supportURL();
}

QUrl AboutInfo::tablerURL() const
{
    return AppConfig::tablerURL();
}
