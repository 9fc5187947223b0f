#include "PreferenceOptions.h"

#include "PlatformWords.h"

namespace PreferenceLabels {

QString label(PickerPosition position, Rendition rendition)
{
    switch (position) {
    case PickerPosition::underMenuBarIcon:
        return PlatformWords::text(PlatformWords::Text::underTrayIcon, rendition);
    case PickerPosition::centered:
        return QStringLiteral("Centered on screen");
    case PickerPosition::mouse:
        return QStringLiteral("At the mouse pointer");
    }
    return QString();
}

QString label(AfterCopy afterCopy)
{
    switch (afterCopy) {
    case AfterCopy::close:
        return QStringLiteral("Close the picker");
    case AfterCopy::keepOpen:
        return QStringLiteral("Keep the picker open");
    case AfterCopy::closeAndPaste:
        return QStringLiteral("Close and paste into front app");
    }
    return QString();
}

QString label(AppearanceMode mode)
{
    switch (mode) {
    case AppearanceMode::system:
        return QStringLiteral("System");
    case AppearanceMode::light:
        return QStringLiteral("Light");
    case AppearanceMode::dark:
        return QStringLiteral("Dark");
    }
    return QString();
}

} // namespace PreferenceLabels
