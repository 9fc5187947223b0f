#include "PickerTab.h"

QString PickerTab::title() const
{
    switch (m_kind) {
    case Kind::all:
        return QStringLiteral("All");
    case Kind::favorites:
        return QStringLiteral("Favorites");
    case Kind::recents:
        return QStringLiteral("Recents");
    case Kind::category:
        break;
    }
    return m_categoryName;
}
