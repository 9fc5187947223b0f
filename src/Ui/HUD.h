#pragma once

#include "Export/CopyTargets.h"

#include <QRasterWindow>
#include <QTimer>
#include <QVariantAnimation>

// The heads-up message after a copy: a dark rounded pill near the bottom of
// the screen under the pointer. It never takes the keyboard or the mouse, so
// the user keeps working in the window behind it. It stays 1.6 s at full
// opacity, fades for 0.25 s and closes; a new message replaces the shown one
// and starts the clock again.
class HUD : public QRasterWindow, public HeadsUp {
    Q_OBJECT

public:
    static constexpr int holdMs = 1600;
    static constexpr int fadeMs = 250;

    HUD();

    void show(const QString& message) override;
    QString message() const { return m_message; }

    // Top-left corner for a HUD of this size: centred horizontally, above the
    // bottom of the screen's free area.
    static QPoint origin(const QRect& available, const QSize& size);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize sizeFor(const QString& message) const;

    QString m_message;
    QTimer m_hold;
    QVariantAnimation m_fade;
};
