#pragma once

#include <QQuickImageProvider>

class IconLibrary;

// "image://glyph/NAME": a catalogue icon in black on transparent, for QML
// images and control icons, which tint it (icon.color); "NAME/RRGGBB" draws
// it in that colour.
class GlyphImageProvider : public QQuickImageProvider {
public:
    explicit GlyphImageProvider(const IconLibrary& library);

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

private:
    const IconLibrary& m_library;
};
