#include "IconExport.h"

bool IconExport::isFilled() const
{
    return style == IconStyle::filled && icon.has(style);
}

PathList IconExport::paths() const
{
    return icon.paths(isFilled() ? IconStyle::filled : IconStyle::outline).value_or(PathList());
}

PathPaints IconExport::paints() const
{
    return icon.isNull() ? PathPaints()
                         : icon.paints(isFilled() ? IconStyle::filled : IconStyle::outline);
}

QString IconExport::packageName() const
{
    return isFilled() ? icon.id() + QStringLiteral("-filled") : icon.id();
}
