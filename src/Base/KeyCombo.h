#pragma once

#include "Rendition.h"

#include <QByteArray>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>
#include <optional>

class KeyboardLayout;

// A shortcut: a virtual key code and a modifier-flag word, in the Mac's
// encoding on every platform so that stored settings mean the same key
// everywhere (34 is the I key, 8 the C key). Each hot key backend maps them.
struct KeyCombo {
    Q_GADGET
    Q_PROPERTY(quint32 keyCode MEMBER keyCode)
    Q_PROPERTY(quint64 modifiers MEMBER modifiers)
    Q_PROPERTY(QStringList keyCaps READ keyCaps)
    Q_PROPERTY(QString spoken READ spoken)

public:
    static constexpr quint64 shiftFlag = 0x20000;
    static constexpr quint64 controlFlag = 0x40000;
    static constexpr quint64 optionFlag = 0x80000;
    static constexpr quint64 commandFlag = 0x100000;

    // Modifiers are named with the Mac's symbols ("⌃ ⌥ ⇧ ⌘") and words
    // ("Control Option Shift Command"), or with the names of Linux and Windows
    // keyboards ("Ctrl Alt Shift Super", spoken "Control Alt Shift Super").
    using Rendition = ::Rendition;

    quint32 keyCode = 0;
    quint64 modifiers = 0;

    // One cap per held modifier (Control, Option, Shift, Command), then the key.
    QStringList keyCaps(Rendition rendition = hostRendition()) const;
    QStringList keyCaps(Rendition rendition, const KeyboardLayout* layout) const;
    // The modifier words and the key's name, joined by spaces.
    QString spoken(Rendition rendition = hostRendition()) const;
    QString spoken(Rendition rendition, const KeyboardLayout* layout) const;

    // Fixed names for the keys that type nothing (Return "↩", F1, arrows, ...),
    // else the upper-cased text of the key on the layout; "?" when there is none.
    static QString keyName(quint32 keyCode);
    static QString keyName(quint32 keyCode, const KeyboardLayout* layout);

    // Compact JSON: {"keyCode":34,"modifiers":786432}.
    QByteArray toJson() const;
    // Both keys are required, as whole non-negative numbers; other keys are ignored.
    static std::optional<KeyCombo> fromJson(const QByteArray& json);

    friend bool operator==(const KeyCombo&, const KeyCombo&) = default;
};

Q_DECLARE_METATYPE(KeyCombo)
