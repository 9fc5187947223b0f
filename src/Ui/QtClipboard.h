#pragma once

#include "Export/CopyTargets.h"

// The system clipboard through QClipboard.
class QtClipboard : public Clipboard {
public:
    void clear() override;
    // Offered as text/plain in UTF-8 (and the X11 string targets Qt derives).
    void putText(const QString& text) override;
    // "image/png" with the exact bytes, and the image itself for receivers
    // that ask for another image type.
    void putPNG(const QByteArray& png, const QImage& image) override;
};
