#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

// Colour settings for QML, read as the export reads them (CSS order): a
// string bound straight to a QML colour would take eight digits as #aarrggbb.
class CssColor : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    // The colour of a hexadecimal value; `fallback` for anything else.
    Q_INVOKABLE static QColor parse(const QString& value, const QColor& fallback);
    // Whether a glyph in `value` stands out from `background`: a contrast
    // ratio of relative luminances of at least 1.5 (white on a light body
    // is 1.1). "currentColor" and other non-hex values always do.
    Q_INVOKABLE static bool legibleOn(const QString& value, const QColor& background);
};
