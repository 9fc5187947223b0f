#include "Rendition.h"

#include <QString>
#include <QSysInfo>

Rendition hostRendition()
{
    static const Rendition host =
        QSysInfo::productType() == u"macos" ? Rendition::mac : Rendition::pc;
    return host;
}
