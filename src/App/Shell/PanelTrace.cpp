#include "PanelTrace.h"

#include "StartupTrace.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QQuickWindow>
#include <cstdio>

void PanelTrace::hotKeyPressed(QQuickWindow* panel)
{
    if (!StartupTrace::enabled())
        return;
    attach(panel);
    start(QStringLiteral("hot key"));
}

void PanelTrace::attach(QQuickWindow* panel)
{
    if (!panel || panel == m_panel)
        return;
    m_panel = panel;
    panel->installEventFilter(this);
    // Direct: the software scene graph renders on this thread; a threaded
    // render loop would report from its own.
    connect(panel, &QQuickWindow::frameSwapped, this, &PanelTrace::frameSwapped,
            Qt::DirectConnection);
}

bool PanelTrace::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_panel && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // A modifier alone changes nothing on screen.
        if (key->key() >= Qt::Key_Shift && key->key() <= Qt::Key_ScrollLock)
            return false;
        const QString text = key->text();
        start(!text.isEmpty() && text.at(0).isPrint()
                  ? QStringLiteral("key \"%1\"").arg(text)
                  : QStringLiteral("key %1").arg(QKeySequence(key->key()).toString()));
    }
    return false;
}

void PanelTrace::start(QString what)
{
    m_what = std::move(what);
    m_clock.start();
}

void PanelTrace::frameSwapped()
{
    if (!m_clock.isValid())
        return;
    const double ms = double(m_clock.nsecsElapsed()) / 1e6;
    std::fprintf(stderr, "pictray: panel %.1f ms  %s  %s\n", ms,
                 StartupTrace::residentMemory().constData(), qUtf8Printable(m_what));
    std::fflush(stderr);
    m_clock.invalidate();
}
