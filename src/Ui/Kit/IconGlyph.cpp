#include "IconGlyph.h"

#include "Base/HexColor.h"
#include "Catalog/IconLibrary.h"

#include <QPainter>
#include <QQmlEngine>

namespace {

// Where an engine keeps its icon library: a dynamic property of the engine,
// so two engines (the tests make many) never share one by accident.
constexpr const char* libraryProperty = "pictrayIconLibrary";

// In pixels of the item: invisible at glyph sizes and cheaper than the
// renderer's export tolerance.
constexpr double curveTolerance = 0.2;

} // namespace

IconGlyph::IconGlyph(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setImplicitSize(m_size, m_size);
}

void IconGlyph::setLibrary(QQmlEngine& engine, IconLibrary& library)
{
    engine.setProperty(libraryProperty, QVariant::fromValue(static_cast<QObject*>(&library)));
}

IconLibrary* IconGlyph::library()
{
    if (!m_library) {
        if (const QQmlEngine* engine = qmlEngine(this))
            m_library =
                qobject_cast<IconLibrary*>(engine->property(libraryProperty).value<QObject*>());
    }
    return m_library;
}

void IconGlyph::componentComplete()
{
    QQuickPaintedItem::componentComplete();
    loadPath();
}

void IconGlyph::setName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    emit nameChanged();
    if (isComponentComplete())
        loadPath();
}

void IconGlyph::setFilled(bool filled)
{
    if (filled == m_filled)
        return;
    m_filled = filled;
    emit filledChanged();
    if (isComponentComplete())
        loadPath();
}

void IconGlyph::setColor(const QString& color)
{
    if (color == m_color)
        return;
    m_color = color;
    emit colorChanged();
    update();
}

void IconGlyph::setCurrentColor(const QColor& color)
{
    if (color == m_currentColor)
        return;
    m_currentColor = color;
    emit currentColorChanged();
    update();
}

void IconGlyph::setSize(qreal size)
{
    if (size == m_size)
        return;
    m_size = size;
    setImplicitSize(size, size);
    emit sizeChanged();
    invalidateShape();
}

void IconGlyph::setStroke(qreal stroke)
{
    if (stroke == m_stroke)
        return;
    m_stroke = stroke;
    emit strokeChanged();
    invalidateShape();
}

void IconGlyph::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        invalidateShape();
}

void IconGlyph::loadPath()
{
    const bool wasValid = valid();
    m_drawing.reset();
    if (IconLibrary* icons = library()) {
        const Icon icon = icons->icon(m_name);
        if (!icon.isNull())
            m_drawing = icons->iconDrawing(icon, m_filled ? IconStyle::filled : IconStyle::outline);
    }
    if (valid() != wasValid)
        emit validChanged();
    invalidateShape();
}

void IconGlyph::invalidateShape()
{
    m_shapeValid = false;
    update();
}

void IconGlyph::paint(QPainter* painter)
{
    if (!m_drawing || m_size <= 0)
        return;
    if (!m_shapeValid) {
        // Centred in the item at `size` points, with the exported images'
        // outline, so the grid shows what a copy gives.
        const qreal k = m_size / 24;
        const QPointF origin((width() - m_size) / 2, (height() - m_size) / 2);
        m_inks = m_drawing->inks(QTransform(k, 0, 0, k, origin.x(), origin.y()), m_stroke * k,
                                 curveTolerance);
        m_shapeValid = true;
    }
    painter->setRenderHint(QPainter::Antialiasing);
    const QColor color = HexColor::parse(m_color).value_or(m_currentColor);
    for (const IconDrawing::Ink& ink : std::as_const(m_inks))
        painter->fillPath(ink.shape, ink.in(color));
}
