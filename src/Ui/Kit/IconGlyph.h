#pragma once

#include "Catalog/IconDrawing.h"

#include <QColor>
#include <QImage>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class IconLibrary;
class QQmlEngine;

// Draws one catalogue icon by name as the exports do (IconDrawing): stroked
// with round caps and joins in the outline style, filled (non-zero) in the
// filled style, except where the icon set paints a path otherwise, scaled
// from the 24-unit grid to `size` points. The glyph is drawn once into a
// texture the size of the item at the screen's pixel ratio; only its name,
// style, colour, size or stroke draw it again. No painter, outline or pixmap
// copy outlives the drawing, which matters with a grid of them.
class IconGlyph : public QQuickItem {
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

    // What the item shows, at `devicePixelRatio` pixels per point; a null
    // image when there is nothing to draw.
    QImage image(qreal devicePixelRatio) const;

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
    void itemChange(ItemChange change, const ItemChangeData& value) override;
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;

private:
    IconLibrary* library();
    void loadPath();
    void redraw();

    QString m_name;
    bool m_filled = false;
    QString m_color = QStringLiteral("currentColor");
    QColor m_currentColor = Qt::black;
    qreal m_size = 24;
    qreal m_stroke = 2;

    IconLibrary* m_library = nullptr;
    std::optional<IconDrawing> m_drawing; // the 24-unit geometry
    bool m_imageValid = false;
};
