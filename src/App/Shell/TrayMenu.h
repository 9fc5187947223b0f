#pragma once

#include "Base/ExportFormat.h"
#include "Base/KeyCombo.h"
#include "State/UserLibrary.h"

#include <QKeySequence>
#include <QStringList>
#include <functional>
#include <optional>

class IconLibrary;
class KeyboardLayout;
class QMenu;

// Everything the tray menu shows, read afresh each time it opens.
struct TrayMenuContent {
    std::optional<KeyCombo> pickerHotKey;
    std::optional<KeyCombo> copyLastHotKey;
    QStringList recents;   // newest first
    QStringList favorites; // in the user's order
    std::optional<UserLibrary::LastCopy> lastCopy;
    ExportFormat defaultFormat = ExportFormat::svg;
    ReactLanguage reactLanguage = ReactLanguage::tsx;
    QList<ExportFormat> pngFormats; // the switched-on sizes
};

// What the items do. The icon and format items pass their item's data (the
// icon name, the format's raw value) as the menu holds it.
struct TrayMenuActions {
    std::function<void()> openPicker;
    std::function<void()> openFavorites;
    std::function<void()> copyLast;
    std::function<void(const QVariant& name)> copyIcon;
    std::function<void(const QVariant& rawFormat)> setFormat;
    std::function<void()> openSettings;
    std::function<void()> checkUpdates;
    std::function<void()> openAbout;
    std::function<void()> quit;
};

namespace TrayMenu {

// Replaces the menu's items with the tray menu for this content. Glyphs are
// drawn in the menu's text colour.
void build(QMenu& menu, const TrayMenuContent& content, const IconLibrary& library,
           const KeyboardLayout* layout, const TrayMenuActions& actions);

// A shortcut is hinted in the menu only when its key is named by one
// character: that character in lower case ("i" for Ctrl+Alt+I); empty for
// keys such as Space or F5, and for no shortcut.
QString keyEquivalent(const std::optional<KeyCombo>& combo, const KeyboardLayout* layout);
// The hint as Qt shows it (Ctrl+Alt+I); empty when keyEquivalent is.
QKeySequence shortcutHint(const std::optional<KeyCombo>& combo, const KeyboardLayout* layout);

} // namespace TrayMenu
