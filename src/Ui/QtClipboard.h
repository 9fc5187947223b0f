#pragma once

#include "Export/CopyTargets.h"

#include <memory>

class ClipboardCarrier;
class QMimeData;

// The system clipboard through QClipboard.
class QtClipboard : public Clipboard {
public:
    QtClipboard();
    ~QtClipboard() override;

    // For compositors that take offers only from a focused client (Wayland):
    // offers made while no window of the program has the keyboard go through
    // a window of their own, and through wl-copy where it is installed.
    void useFocusCarrier();

    void clear() override;
    // Offered as text/plain in UTF-8 (and the X11 string targets Qt derives).
    void putText(const QString& text) override;
    // "image/png" with the exact bytes, and the image itself for receivers
    // that ask for another image type.
    void putPNG(const QByteArray& png, const QImage& image) override;

private:
    // Takes `data`; none clears the clipboard.
    void offer(QMimeData* data);
    // Without a focused window, also through wl-copy where installed: a
    // compositor that checks input serials (wlroots) refuses Qt's offer.
    void assistWithoutFocus(const QByteArray& bytes, const QString& mimeType);

    std::unique_ptr<ClipboardCarrier> m_carrier;
};
