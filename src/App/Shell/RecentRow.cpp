#include "RecentRow.h"

#include "Catalog/IconLibrary.h"
#include "MenuIcons.h"

#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int sideMargin = 16;
constexpr int captionHeight = 20;
constexpr int cellSize = 26;
constexpr double glyphSize = 18;

} // namespace

RecentRow::RecentRow(const QStringList& names, const IconLibrary& library, OnCopy onCopy,
                     QWidget* parent)
    : QWidget(parent), m_onCopy(std::move(onCopy))
{
    setFixedSize(fixedSize);
    setMouseTracking(true);
    m_glyphColor = palette().color(QPalette::WindowText);
    for (const QString& name : names) {
        if (m_names.size() == maxIcons)
            break;
        if (library.icon(name).isNull())
            continue;
        m_names.append(name);
        m_glyphs.append(MenuIcons::glyph(library, name, glyphSize, m_glyphColor));
    }
}

QRect RecentRow::cellRect(int index) const
{
    // The cells share the width between the margins evenly.
    const int span = width() - 2 * sideMargin;
    const int step = span / maxIcons;
    const int x = sideMargin + index * step + (step - cellSize) / 2;
    const int y = captionHeight + (height() - captionHeight - cellSize) / 2;
    return {x, y, cellSize, cellSize};
}

int RecentRow::cellAt(const QPoint& point) const
{
    for (int i = 0; i < m_names.size(); ++i) {
        if (cellRect(i).contains(point))
            return i;
    }
    return -1;
}

void RecentRow::setHovered(int index)
{
    if (index == m_hovered)
        return;
    m_hovered = index;
    update();
}

void RecentRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont caption = font();
    caption.setPointSizeF(caption.pointSizeF() * 0.85);
    painter.setFont(caption);
    QColor captionColor = m_glyphColor;
    captionColor.setAlphaF(0.6f);
    painter.setPen(captionColor);
    // The caption starts where the first glyph does.
    const int captionX = cellRect(0).left() + (cellSize - int(glyphSize)) / 2;
    painter.drawText(QRect(captionX, 2, width() - captionX - sideMargin, captionHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, tr("Recent"));
    for (int i = 0; i < m_names.size(); ++i) {
        const QRect cell = cellRect(i);
        if (i == m_hovered) {
            QColor highlight = palette().color(QPalette::Highlight);
            highlight.setAlphaF(0.25f);
            painter.setPen(Qt::NoPen);
            painter.setBrush(highlight);
            painter.drawRoundedRect(QRectF(cell), 6, 6);
        }
        const int glyph = int(glyphSize);
        const QRect glyphRect(cell.center().x() - glyph / 2 + 1, cell.center().y() - glyph / 2 + 1,
                              glyph, glyph);
        m_glyphs.at(i).paint(&painter, glyphRect);
    }
}

void RecentRow::mouseMoveEvent(QMouseEvent* event)
{
    setHovered(cellAt(event->position().toPoint()));
}

void RecentRow::leaveEvent(QEvent*)
{
    setHovered(-1);
}

void RecentRow::mouseReleaseEvent(QMouseEvent* event)
{
    const int index = cellAt(event->position().toPoint());
    if (index < 0 || event->button() != Qt::LeftButton)
        return;
    const QString name = m_names.at(index);
    // Close the whole menu first, as a menu item would.
    for (QWidget* ancestor = parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        if (auto* menu = qobject_cast<QMenu*>(ancestor))
            menu->close();
    }
    if (m_onCopy)
        m_onCopy(name);
}

bool RecentRow::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const int index = cellAt(help->pos());
        if (index >= 0)
            QToolTip::showText(help->globalPos(), m_names.at(index), this, cellRect(index));
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}
