#pragma once

#include "Base/Rendition.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <functional>

class Preferences;

// The settings that are one of a fixed list, as the index of the chosen case
// and the labels in case order, so that a segmented control or a list binds
// to them without knowing the C++ enums.
//   X(Type, name, Name)
// clang-format off
#define PICTRAY_CHOICE_SETTINGS(X) \
    X(PickerPosition, pickerPosition, PickerPosition) \
    X(AfterCopy, afterCopy, AfterCopy) \
    X(AppearanceMode, appearance, Appearance) \
    X(ExportFormat, defaultFormat, DefaultFormat) \
    X(IconStyle, defaultStyle, DefaultStyle) \
    X(ReactLanguage, reactLanguage, ReactLanguage) \
    X(VueStyle, vueStyle, VueStyle) \
    X(PNGBackground, pngBackground, PngBackground) \
    X(DragFormat, dragFormat, DragFormat)
#define PICTRAY_CHOICE_PROPERTY(Type, name, Name) \
    Q_PROPERTY(int name READ name WRITE set##Name NOTIFY name##Changed) \
    Q_PROPERTY(QStringList name##Labels READ name##Labels NOTIFY labelsChanged)
#define PICTRAY_CHOICE_ACCESSORS(Type, name, Name) \
    int name() const; \
    void set##Name(int index); \
    QStringList name##Labels() const;
#define PICTRAY_CHOICE_SIGNAL(Type, name, Name) void name##Changed();
// clang-format on

class ChoiceSettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the window manager hands it to the settings window")
    PICTRAY_CHOICE_SETTINGS(PICTRAY_CHOICE_PROPERTY)

public:
    explicit ChoiceSettings(Preferences& prefs, Rendition rendition = hostRendition(),
                            QObject* parent = nullptr);

    PICTRAY_CHOICE_SETTINGS(PICTRAY_CHOICE_ACCESSORS)

signals:
    PICTRAY_CHOICE_SETTINGS(PICTRAY_CHOICE_SIGNAL)
    // The default format's React entry names the React language in use.
    void labelsChanged();

private:
    Preferences& m_prefs;
    Rendition m_rendition;
};
