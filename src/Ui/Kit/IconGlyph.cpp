#include "IconGlyph.h"

#include "Base/HexColor.h"
#include "Catalog/IconLibrary.h"

#include <QPainter>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSGImageNode>

namespace {

// Where an engine keeps its icon library: a dynamic property of the engine,
// so two engines (the tests make many) never share one by accident.
constexpr const char* libraryProperty = "pictrayIconLibrary";

// In pixels of the item: invisible at glyph sizes and cheaper than the
// renderer's export tolerance.
constexpr double curveTolerance = 0.2;

} // namespace

IconGlyph::IconGlyph(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
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
    QQuickItem::componentComplete();
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
    redraw();
}

void IconGlyph::setCurrentColor(const QColor& color)
{
    if (color == m_currentColor)
        return;
    m_currentColor = color;
    emit currentColorChanged();
    redraw();
}

void IconGlyph::setSize(qreal size)
{
    if (size == m_size)
        return;
    m_size = size;
    setImplicitSize(size, size);
    emit sizeChanged();
    redraw();
}

void IconGlyph::setStroke(qreal stroke)
{
    if (stroke == m_stroke)
        return;
    m_stroke = stroke;
    emit strokeChanged();
    redraw();
}

void IconGlyph::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        redraw();
}

void IconGlyph::itemChange(ItemChange change, const ItemChangeData& value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemDevicePixelRatioHasChanged)
        redraw();
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
    redraw();
}

void IconGlyph::redraw()
{
    m_imageValid = false;
    update();
}

QImage IconGlyph::image(qreal devicePixelRatio) const
{
    const QSize pixels(qCeil(width() * devicePixelRatio), qCeil(height() * devicePixelRatio));
    if (!m_drawing || m_size <= 0 || pixels.isEmpty())
        return {};
    QImage canvas(pixels, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(devicePixelRatio);
    canvas.fill(Qt::transparent);
    {
        // Centred in the item at `size` points, with the exported images'
        // outline, so the grid shows what a copy gives.
        const qreal k = m_size / 24;
        const QPointF origin((width() - m_size) / 2, (height() - m_size) / 2);
        const QList<IconDrawing::Ink> inks = m_drawing->inks(
            QTransform(k, 0, 0, k, origin.x(), origin.y()), m_stroke * k, curveTolerance);
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor color = HexColor::parse(m_color).value_or(m_currentColor);
        for (const IconDrawing::Ink& ink : inks)
            painter.fillPath(ink.shape, ink.in(color));
    }
    // The canvas keeps the paint engine its painter made, with the
    // rasterizer's buffers; a copy of the pixels does not.
    return canvas.copy();
}

QSGNode* IconGlyph::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(old);
    if (m_imageValid && node)
        return node;
    m_imageValid = true;
    const QImage drawn = image(window()->effectiveDevicePixelRatio());
    if (drawn.isNull()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        // Drawn at the item's own pixel size: a pixel for a pixel.
        node->setFiltering(QSGTexture::Nearest);
    }
    node->setTexture(window()->createTextureFromImage(drawn));
    node->setRect(QRectF(QPointF(0, 0), drawn.deviceIndependentSize()));
    return node;
}
