#include "Appearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

Appearance::Appearance(QObject* parent) : QObject(parent)
{
    // The desktop announces a theme switch as an application palette change.
    if (qApp != nullptr)
        qApp->installEventFilter(this);
    update();
}

void Appearance::setMode(AppearanceMode mode)
{
    m_mode = mode;
    update();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        update();
    return QObject::eventFilter(watched, event);
}

void Appearance::update()
{
    bool dark = m_mode == AppearanceMode::dark;
    if (m_mode == AppearanceMode::system)
        dark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    if (dark == m_dark)
        return;
    m_dark = dark;
    emit darkChanged();
}
