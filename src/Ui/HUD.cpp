#include "HUD.h"

#include <QCursor>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QRegion>
#include <QScreen>
#include <cmath>

namespace {

constexpr int horizontalPadding = 22;
constexpr int verticalPadding = 12;
constexpr int bottomGap = 96;
constexpr qreal fontPointSize = 13;

QFont hudFont()
{
    QFont font = QGuiApplication::font();
    font.setPointSizeF(fontPointSize);
    font.setWeight(QFont::DemiBold);
    return font;
}

QRectF pillRect(const QSize& size)
{
    return QRectF(QPointF(), QSizeF(size)).adjusted(0.5, 0.5, -0.5, -0.5);
}

// Without a compositor the window's alpha is ignored; the shape keeps the
// corners from showing as dark squares.
QRegion pillRegion(const QSize& size)
{
    // Row by row, so the round ends are exact to the pixel.
    QRegion region;
    const double radius = size.height() / 2.0;
    for (int y = 0; y < size.height(); ++y) {
        const double dy = y + 0.5 - radius;
        const int inset = static_cast<int>(
            std::floor(radius - std::sqrt(std::max(0.0, radius * radius - dy * dy))));
        region += QRect(inset, y, size.width() - 2 * inset, 1);
    }
    return region;
}

} // namespace

HUD::HUD()
{
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    QSurfaceFormat surface = format();
    surface.setAlphaBufferSize(8);
    setFormat(surface);
    setTitle(QStringLiteral("Pictray"));

    m_hold.setSingleShot(true);
    m_hold.setInterval(holdMs);
    connect(&m_hold, &QTimer::timeout, this, [this] { m_fade.start(); });

    m_fade.setStartValue(1.0);
    m_fade.setEndValue(0.0);
    m_fade.setDuration(fadeMs);
    connect(&m_fade, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { setOpacity(value.toReal()); });
    connect(&m_fade, &QVariantAnimation::finished, this, [this] { close(); });
}

void HUD::show(const QString& message)
{
    m_fade.stop();
    m_message = message;
    setOpacity(1.0);

    QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QSize size = sizeFor(message);
    if (screen) {
        setScreen(screen);
        setGeometry(QRect(origin(screen->availableGeometry(), size), size));
    } else {
        resize(size);
    }
    setMask(pillRegion(size));
    QRasterWindow::show();
    raise(); // a window opened since the last message may cover it
    update();
    m_hold.start();
}

QPoint HUD::origin(const QRect& available, const QSize& size)
{
    const int x = available.x() + (available.width() - size.width()) / 2;
    const int y = available.y() + std::max(0, available.height() - size.height() - bottomGap);
    return {x, y};
}

QSize HUD::sizeFor(const QString& message) const
{
    const QFontMetrics metrics(hudFont());
    return {metrics.horizontalAdvance(message) + 2 * horizontalPadding,
            metrics.height() + 2 * verticalPadding};
}

void HUD::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::Antialiasing);

    const QRectF pill = pillRect(size());
    const qreal radius = pill.height() / 2;
    painter.setPen(QPen(QColor(255, 255, 255, 40), 1));
    painter.setBrush(QColor(28, 28, 30, 235));
    painter.drawRoundedRect(pill, radius, radius);

    painter.setFont(hudFont());
    painter.setPen(Qt::white);
    painter.drawText(pill, Qt::AlignCenter, m_message);
}
