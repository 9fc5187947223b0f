#pragma once

#include "Export/CopyTargets.h"

#include <QRasterWindow>
#include <QTimer>
#include <QVariantAnimation>

// The heads-up message after a copy: a dark rounded pill near the bottom of
// the screen under the pointer. It never takes the keyboard or the mouse, so
// the user keeps working in the window behind it. It fades in, stays at full
// opacity, fades out and closes; a new message replaces the shown one and
// starts again from the opacity it has.
class HUD : public QRasterWindow, public HeadsUp {
    Q_OBJECT

public:
    struct Timing {
        int fadeInMs = 150;
        int holdMs = 1600;
        int fadeOutMs = 250;
    };

    HUD();

    void show(const QString& message) override;
    QString message() const { return m_message; }
    // Applies from the next message on.
    void setTiming(const Timing& timing);

    // Top-left corner for a HUD of this size: centred horizontally, above the
    // bottom of the screen's free area.
    static QPoint origin(const QRect& available, const QSize& size);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize sizeFor(const QString& message) const;
    void place(const QString& message);

    QString m_message;
    QVariantAnimation m_fadeIn;
    QTimer m_hold;
    QVariantAnimation m_fadeOut;
};
