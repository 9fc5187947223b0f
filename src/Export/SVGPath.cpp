#include "SVGPath.h"

QString SVGPath::ParseError::description() const
{
    return QStringLiteral("SVG path parse error at %1: %2").arg(offset).arg(message);
}

std::optional<SVGPath::ParseError> SVGPath::append(QByteArrayView, QPainterPath&)
{
    return ParseError{0, QStringLiteral("not implemented")};
}
