#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>

class QQuickWindow;

// With PICTRAY_TRACE_STARTUP=1, notes on stderr how long the picker panel
// takes from a request to its next rendered frame, and its memory then:
//   pictray: panel 4.1 ms  rss 61236 kB  hot key
//   pictray: panel 7.9 ms  rss 61240 kB  key "a"
// The hot key is timed from the moment its event arrives, a key press in
// the panel from the panel's own event. Nothing is done when tracing is off.
class PanelTrace : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // Times the next frame of `panel`, which the hot key is about to show
    // (null until the panel is made).
    void hotKeyPressed(QQuickWindow* panel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void start(QString what);
    void attach(QQuickWindow* panel);
    void frameSwapped();

    QPointer<QQuickWindow> m_panel;
    QElapsedTimer m_clock;
    QString m_what;
};
