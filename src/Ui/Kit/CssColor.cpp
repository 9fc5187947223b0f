#include "CssColor.h"

#include "Base/HexColor.h"

QColor CssColor::parse(const QString& value, const QColor& fallback)
{
    return HexColor::parse(value).value_or(fallback);
}
