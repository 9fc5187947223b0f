#pragma once

// Every user setting, one entry each, in the order of the settings window and
// of `pictray prefs list`:
//
//   X(type, name, Name, default, registered)
//
// From an entry Preferences gets the property `name` with its getter, its
// setter `setName`, its signal `nameChanged`, and the store key "name".
// `default` is the value a missing or unreadable stored value gives;
// `registered` says whether that default is also registered with the store.
// The shortcuts are not: a missing key and an empty one mean different things.
// moc expands this list like the compiler does, so the properties it
// generates are real Q_PROPERTYs that QML and QMetaObject see.
//
// Adding a setting: one entry here, of a type Preferences.cpp has a codec for
// (bool, qint64, double, QString, an enum with RawValues, a shortcut).

// clang-format off
#define PICTRAY_PREFERENCES(X) \
    X(std::optional<KeyCombo>, pickerHotKey, PickerHotKey, Preferences::defaultPickerHotKey, false) \
    X(std::optional<KeyCombo>, copyLastHotKey, CopyLastHotKey, Preferences::defaultCopyLastHotKey, false) \
    X(bool, automaticallyChecksForUpdates, AutomaticallyChecksForUpdates, false, true) \
    X(bool, showMenuBarIcon, ShowMenuBarIcon, true, true) \
    X(PickerPosition, pickerPosition, PickerPosition, PickerPosition::underMenuBarIcon, true) \
    X(AfterCopy, afterCopy, AfterCopy, AfterCopy::close, true) \
    X(AppearanceMode, appearance, Appearance, AppearanceMode::system, true) \
    X(bool, keepLastSearch, KeepLastSearch, false, true) \
    X(qint64, recentsLimit, RecentsLimit, 24, true) \
    X(bool, hasCompletedOnboarding, HasCompletedOnboarding, false, false) \
    X(ExportFormat, defaultFormat, DefaultFormat, ExportFormat::jsx, true) \
    X(QString, defaultColor, DefaultColor, QStringLiteral("currentColor"), true) \
    X(qint64, defaultSize, DefaultSize, 24, true) \
    X(double, defaultStroke, DefaultStroke, 2.0, true) \
    X(IconStyle, defaultStyle, DefaultStyle, IconStyle::outline, true) \
    X(bool, optimizeSVG, OptimizeSVG, true, true) \
    X(bool, includeSize, IncludeSize, true, true) \
    X(bool, tailwindCurrentColor, TailwindCurrentColor, true, true) \
    X(bool, ariaHidden, AriaHidden, false, true) \
    X(QString, classAttribute, ClassAttribute, QStringLiteral("icon icon-tabler"), true) \
    X(QString, reactComponentName, ReactComponentName, QStringLiteral("Icon{Name}"), true) \
    X(ReactLanguage, reactLanguage, ReactLanguage, ReactLanguage::tsx, true) \
    X(VueStyle, vueStyle, VueStyle, VueStyle::sfc, true) \
    X(QString, bladePrefix, BladePrefix, QStringLiteral("x-tabler-"), true) \
    X(bool, png1x, Png1x, true, true) \
    X(bool, png2x, Png2x, true, true) \
    X(bool, png3x, Png3x, false, true) \
    X(PNGBackground, pngBackground, PngBackground, PNGBackground::transparent, true) \
    X(qint64, pngPadding, PngPadding, 0, true) \
    X(DragFormat, dragFormat, DragFormat, DragFormat::bestMatch, true) \
    X(bool, showCategoryBar, ShowCategoryBar, true, true)
// clang-format on
