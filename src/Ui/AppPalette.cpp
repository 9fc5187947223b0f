#include "AppPalette.h"

namespace AppPalette {
namespace {

QPalette make(QColor window, QColor base, QColor alternate, QColor text, QColor button,
              QColor highlight, QColor placeholder)
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, alternate);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, placeholder);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, button);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::red);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, highlight.lighter(130));
    palette.setColor(QPalette::Light, button.lighter(130));
    palette.setColor(QPalette::Midlight, button.lighter(115));
    palette.setColor(QPalette::Mid, button.darker(130));
    palette.setColor(QPalette::Dark, button.darker(160));
    palette.setColor(QPalette::Shadow, Qt::black);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, placeholder);
    }
    return palette;
}

} // namespace

std::optional<QPalette> forMode(AppearanceMode mode)
{
    switch (mode) {
    case AppearanceMode::system:
        return std::nullopt;
    case AppearanceMode::light:
        return make(QColor(0xf2, 0xf2, 0xf4), Qt::white, QColor(0xf6, 0xf6, 0xf8),
                    QColor(0x1d, 0x1d, 0x1f), QColor(0xe9, 0xe9, 0xec), QColor(0x2f, 0x6b, 0xeb),
                    QColor(0x8e, 0x8e, 0x93));
    case AppearanceMode::dark:
        return make(QColor(0x2b, 0x2b, 0x2e), QColor(0x1f, 0x1f, 0x22), QColor(0x33, 0x33, 0x36),
                    QColor(0xf2, 0xf2, 0xf4), QColor(0x3a, 0x3a, 0x3d), QColor(0x34, 0x70, 0xe0),
                    QColor(0x8e, 0x8e, 0x93));
    }
    return std::nullopt;
}

} // namespace AppPalette
