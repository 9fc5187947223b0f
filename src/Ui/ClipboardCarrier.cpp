#include "ClipboardCarrier.h"

#include <QGuiApplication>
#include <QPainter>

ClipboardCarrier::ClipboardCarrier()
{
    // One fixed size floats it on tiling compositors; transparent, it is not seen.
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setTitle(QStringLiteral("Pictray"));
    const QSize size(1, 1);
    setMinimumSize(size);
    setMaximumSize(size);
    resize(size);
    m_giveUp.setSingleShot(true);
    m_giveUp.setInterval(focusWaitMs);
    connect(&m_giveUp, &QTimer::timeout, this, &ClipboardCarrier::deliver);
}

ClipboardCarrier::~ClipboardCarrier() = default;

void ClipboardCarrier::carry(std::function<void()> offer)
{
    const QWindow* focused = QGuiApplication::focusWindow();
    if (focused && m_pending.empty()) {
        offer();
        return;
    }
    m_pending.push_back(std::move(offer));
    if (isActive()) {
        deliver();
        return;
    }
    if (!isVisible()) {
        show();
        requestActivate();
    }
    m_giveUp.start();
}

void ClipboardCarrier::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

bool ClipboardCarrier::event(QEvent* event)
{
    if (event->type() == QEvent::FocusIn && !m_pending.empty())
        deliver();
    return QRasterWindow::event(event);
}

void ClipboardCarrier::deliver()
{
    m_giveUp.stop();
    // Moved out first: an offer may make another copy.
    const auto offers = std::exchange(m_pending, {});
    for (const auto& offer : offers)
        offer();
    // The offers reach the compositor before the window goes: requests keep their order.
    hide();
}
