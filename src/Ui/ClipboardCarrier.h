#pragma once

#include <QRasterWindow>
#include <QTimer>
#include <functional>
#include <vector>

// A Wayland compositor takes a clipboard offer only from the client that has
// the keyboard, so a copy made while none of the program's windows has it
// (the tray menu, copy-last by shortcut or command) would be dropped. The
// carrier is a tiny transparent window that takes the keyboard for a moment
// and makes such offers from its own focused surface.
class ClipboardCarrier : public QRasterWindow {
    Q_OBJECT

public:
    // How long the carrier waits for the keyboard before offering anyway.
    static constexpr int focusWaitMs = 2000;

    ClipboardCarrier();
    ~ClipboardCarrier() override;

    // Runs `offer` at once while a window of the program has the keyboard,
    // else once the carrier has it; offers keep their order.
    void carry(std::function<void()> offer);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    void deliver();

    std::vector<std::function<void()>> m_pending;
    QTimer m_giveUp;
};
