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

// Wayland windows have no opacity of their own: there the message shows
// without fading, for as long as it would take.
bool windowsFade()
{
    static const bool fade = !QGuiApplication::platformName().startsWith(u"wayland");
    return fade;
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

    const auto follow = [this](const QVariant& value) {
        if (windowsFade())
            setOpacity(value.toReal());
    };
    m_fadeIn.setEndValue(1.0);
    connect(&m_fadeIn, &QVariantAnimation::valueChanged, this, follow);
    connect(&m_fadeIn, &QVariantAnimation::finished, &m_hold, qOverload<>(&QTimer::start));

    m_hold.setSingleShot(true);
    connect(&m_hold, &QTimer::timeout, &m_fadeOut, [this] { m_fadeOut.start(); });

    m_fadeOut.setStartValue(1.0);
    m_fadeOut.setEndValue(0.0);
    connect(&m_fadeOut, &QVariantAnimation::valueChanged, this, follow);
    connect(&m_fadeOut, &QVariantAnimation::finished, this, [this] { close(); });

    setTiming({});
}

void HUD::setTiming(const Timing& timing)
{
    m_fadeIn.setDuration(timing.fadeInMs);
    m_hold.setInterval(timing.holdMs);
    m_fadeOut.setDuration(timing.fadeOutMs);
}

void HUD::show(const QString& message)
{
    m_fadeIn.stop();
    m_hold.stop();
    m_fadeOut.stop();
    m_message = message;
    // A message that replaces one still on screen does not blink.
    const qreal from = isVisible() ? opacity() : 0.0;
    if (windowsFade())
        setOpacity(from);
    place(message);
    QRasterWindow::show();
    raise(); // a window opened since the last message may cover it
    update();
    m_fadeIn.setStartValue(from);
    m_fadeIn.start();
}

void HUD::place(const QString& message)
{
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
