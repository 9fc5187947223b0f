#include "WheelToHorizontal.h"

#include <QMetaProperty>
#include <QWheelEvent>
#include <algorithm>

namespace {

// Pixels per wheel notch (120 units of angle delta).
constexpr double pixelsPerNotch = 48;

} // namespace

WheelToHorizontal::WheelToHorizontal(QQuickItem* parent) : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::NoButton);
}

void WheelToHorizontal::setTarget(QQuickItem* target)
{
    if (target == m_target)
        return;
    if (m_target)
        disconnect(m_target, nullptr, this, nullptr);
    m_target = target;
    if (target) {
        // Follow every geometry property of the Flickable by its notify signal.
        const QMetaMethod notify = metaObject()->method(
            metaObject()->indexOfSignal(QMetaObject::normalizedSignature("positionChanged()")));
        const QMetaObject* meta = target->metaObject();
        for (const char* name : {"contentX", "contentWidth", "originX", "width"}) {
            const QMetaProperty property = meta->property(meta->indexOfProperty(name));
            if (property.hasNotifySignal())
                connect(target, property.notifySignal(), this, notify);
        }
    }
    emit targetChanged();
    emit positionChanged();
}

double WheelToHorizontal::number(const char* property) const
{
    return m_target ? m_target->property(property).toDouble() : 0;
}

double WheelToHorizontal::minX() const
{
    return number("originX");
}

double WheelToHorizontal::maxX() const
{
    return std::max(minX(), minX() + number("contentWidth") - number("width"));
}

bool WheelToHorizontal::canLeft() const
{
    return number("contentX") > minX() + 0.5;
}

bool WheelToHorizontal::canRight() const
{
    return number("contentX") < maxX() - 0.5;
}

void WheelToHorizontal::scrollBy(double dx)
{
    if (!m_target)
        return;
    const double x = std::clamp(number("contentX") + dx, minX(), maxX());
    m_target->setProperty("contentX", x);
}

void WheelToHorizontal::page(int direction)
{
    scrollBy((direction < 0 ? -1 : 1) * pageShare * number("width"));
}

void WheelToHorizontal::wheelEvent(QWheelEvent* event)
{
    // Touchpads report pixels; mice report angles. Either axis scrolls.
    const QPoint pixels = event->pixelDelta();
    const QPoint angle = event->angleDelta();
    double delta = 0;
    if (!pixels.isNull())
        delta = std::abs(pixels.y()) > std::abs(pixels.x()) ? pixels.y() : pixels.x();
    else
        delta = (std::abs(angle.y()) > std::abs(angle.x()) ? angle.y() : angle.x()) / 120.0 *
                pixelsPerNotch;
    if (delta == 0 || !m_target) {
        event->ignore();
        return;
    }
    scrollBy(-delta);
    event->accept();
}
