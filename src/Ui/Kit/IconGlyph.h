#pragma once

#include "Catalog/IconDrawing.h"

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

class IconLibrary;
class QQmlEngine;

// Draws one catalogue icon by name as the exports do (IconDrawing): stroked
// with round caps and joins in the outline style, filled (non-zero) in the
// filled style, except where the icon set paints a path otherwise, scaled
// from the 24-unit grid to `size` points. The finished shape is cached per name, style,
// size and stroke, so a repaint (a new texture after a scroll, a colour
// change) is a single antialiased fill.
class IconGlyph : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(bool filled READ filled WRITE setFilled NOTIFY filledChanged)
    // A hex colour in CSS order such as "#DC2626" or "#DC262680"; anything
    // else ("currentColor") draws in `currentColor`.
    Q_PROPERTY(QString color READ color WRITE setColor NOTIFY colorChanged)
    // What "currentColor" stands for: the text colour of the palette.
    Q_PROPERTY(
        QColor currentColor READ currentColor WRITE setCurrentColor NOTIFY currentColorChanged)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)
    // In icon units: it scales with the icon.
    Q_PROPERTY(qreal stroke READ stroke WRITE setStroke NOTIFY strokeChanged)
    // False for an unknown name (nothing is drawn).
    Q_PROPERTY(bool valid READ valid NOTIFY validChanged)

public:
    explicit IconGlyph(QQuickItem* parent = nullptr);

    // The library glyphs of this engine draw from.
    static void setLibrary(QQmlEngine& engine, IconLibrary& library);

    QString name() const { return m_name; }
    bool filled() const { return m_filled; }
    QString color() const { return m_color; }
    QColor currentColor() const { return m_currentColor; }
    qreal size() const { return m_size; }
    qreal stroke() const { return m_stroke; }
    bool valid() const { return m_drawing.has_value(); }

    void setName(const QString& name);
    void setFilled(bool filled);
    void setColor(const QString& color);
    void setCurrentColor(const QColor& color);
    void setSize(qreal size);
    void setStroke(qreal stroke);

    void paint(QPainter* painter) override;

signals:
    void nameChanged();
    void filledChanged();
    void colorChanged();
    void currentColorChanged();
    void sizeChanged();
    void strokeChanged();
    void validChanged();

protected:
    void componentComplete() override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    IconLibrary* library();
    void loadPath();
    void invalidateShape();

    QString m_name;
    bool m_filled = false;
    QString m_color = QStringLiteral("currentColor");
    QColor m_currentColor = Qt::black;
    qreal m_size = 24;
    qreal m_stroke = 2;

    IconLibrary* m_library = nullptr;
    std::optional<IconDrawing> m_drawing; // the 24-unit geometry
    QList<IconDrawing::Ink> m_inks;       // scaled (and stroked), ready to fill
    bool m_shapeValid = false;
};
