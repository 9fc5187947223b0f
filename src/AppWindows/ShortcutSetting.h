#pragma once

#include "Base/KeyCombo.h"
#include "Platform/HotKeyCenter.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <optional>

class Preferences;

// One of the two global shortcuts as the recorder edits it. Recording
// suspends the global hot keys, so pressing the current shortcut reaches the
// recorder instead of opening the picker; whatever ends recording resumes
// them, once.
class ShortcutSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the window manager hands it to the windows")
    Q_PROPERTY(QStringList keyCaps READ keyCaps NOTIFY comboChanged)
    Q_PROPERTY(bool recording READ isRecording NOTIFY recordingChanged)
    Q_PROPERTY(QString accessibleName READ accessibleName NOTIFY comboChanged)
    Q_PROPERTY(QString refusal READ refusal NOTIFY refusalChanged)
    // The desktop decides the keys: its note stands in place of the recorder.
    Q_PROPERTY(bool desktopOwned READ desktopOwned CONSTANT)
    Q_PROPERTY(bool canOpenDesktopSettings READ canOpenDesktopSettings NOTIFY refusalChanged)

public:
    ShortcutSetting(Preferences& prefs, HotKeyCenter& hotKeys, HotKeyCenter::ID id,
                    QObject* parent = nullptr);
    ~ShortcutSetting() override;

    std::optional<KeyCombo> combo() const;
    // Empty when there is no shortcut.
    QStringList keyCaps() const;
    bool isRecording() const { return m_recording; }
    // "Shortcut: Control Alt I. Click to record a new one." or
    // "No shortcut. Click to record one."
    QString accessibleName() const;
    // What the desktop says where it owns the keys (Wayland: the key it bound,
    // or how to bind the command); else set while the system refuses the
    // shortcut because another program holds it.
    QString refusal() const;
    bool desktopOwned() const { return m_hotKeys.desktopOwnsKeys(); }
    bool canOpenDesktopSettings() const { return m_hotKeys.canConfigureOnDesktop(); }
    Q_INVOKABLE void openDesktopSettings() { m_hotKeys.configureOnDesktop(); }

    Q_INVOKABLE void toggleRecording();
    Q_INVOKABLE void stopRecording();
    // A key pressed while recording (Qt's key and modifiers); false when not recording.
    Q_INVOKABLE bool press(int key, int modifiers, quint32 nativeScanCode);
    Q_INVOKABLE void resetToDefault();
    Q_INVOKABLE void clear();

signals:
    void comboChanged();
    void recordingChanged();
    void refusalChanged();

private:
    void setCombo(const std::optional<KeyCombo>& combo);

    Preferences& m_prefs;
    HotKeyCenter& m_hotKeys;
    HotKeyCenter::ID m_id;
    bool m_recording = false;
};
