#pragma once

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

// One colour choice of the inspector: what goes into the model's colour and
// what the user reads.
struct ColorSwatch {
    Q_GADGET
    Q_PROPERTY(QString value MEMBER value CONSTANT)
    Q_PROPERTY(QString label MEMBER label CONSTANT)

public:
    QString value;
    QString label;

    friend bool operator==(const ColorSwatch&, const ColorSwatch&) = default;
};

Q_DECLARE_METATYPE(ColorSwatch)

namespace ColorSwatches {

// The twelve fixed swatches, then one "Custom …" entry for each of the
// default colour and the working colour that is neither "currentColor" nor
// one of the twelve (compared without regard to case); equal extras give one.
QList<ColorSwatch> forColors(const QString& defaultColor, const QString& color);

} // namespace ColorSwatches
