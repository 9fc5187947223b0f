#include "ShortcutSetting.h"

#include "RecordedKey.h"
#include "State/Preferences.h"

ShortcutSetting::ShortcutSetting(Preferences& prefs, HotKeyCenter& hotKeys, HotKeyCenter::ID id,
                                 QObject* parent)
    : QObject(parent), m_prefs(prefs), m_hotKeys(hotKeys), m_id(id)
{
    const auto changed = m_id == HotKeyCenter::ID::picker ? &Preferences::pickerHotKeyChanged
                                                          : &Preferences::copyLastHotKeyChanged;
    connect(&prefs, changed, this, &ShortcutSetting::comboChanged);
    connect(&hotKeys, &HotKeyCenter::registrationsChanged, this, &ShortcutSetting::refusalChanged);
}

ShortcutSetting::~ShortcutSetting()
{
    // A window closed while recording must not leave the hot keys off.
    stopRecording();
}

std::optional<KeyCombo> ShortcutSetting::combo() const
{
    return m_id == HotKeyCenter::ID::picker ? m_prefs.pickerHotKey() : m_prefs.copyLastHotKey();
}

void ShortcutSetting::setCombo(const std::optional<KeyCombo>& combo)
{
    if (m_id == HotKeyCenter::ID::picker)
        m_prefs.setPickerHotKey(combo);
    else
        m_prefs.setCopyLastHotKey(combo);
}

QStringList ShortcutSetting::keyCaps() const
{
    const auto current = combo();
    return current ? current->keyCaps() : QStringList();
}

QString ShortcutSetting::accessibleName() const
{
    const auto current = combo();
    if (!current)
        return QStringLiteral("No shortcut. Click to record one.");
    return QStringLiteral("Shortcut: ") + current->spoken() +
           QStringLiteral(". Click to record a new one.");
}

QString ShortcutSetting::refusal() const
{
    // Where the desktop owns the keys, it has the last word.
    if (QString note = m_hotKeys.desktopNote(m_id); !note.isEmpty())
        return note;
    if (!m_hotKeys.isRefused(m_id))
        return QString();
    return QStringLiteral("Another program already uses this shortcut.");
}

void ShortcutSetting::toggleRecording()
{
    if (m_recording) {
        stopRecording();
        return;
    }
    m_recording = true;
    m_hotKeys.suspend();
    emit recordingChanged();
}

void ShortcutSetting::stopRecording()
{
    if (!m_recording)
        return;
    m_recording = false;
    m_hotKeys.resume();
    emit recordingChanged();
}

bool ShortcutSetting::press(int key, int modifiers, quint32 nativeScanCode)
{
    if (!m_recording)
        return false;
    const auto code = RecordedKey::virtualKeyCode(key, nativeScanCode);
    const quint64 flags = RecordedKey::modifierFlags(Qt::KeyboardModifiers(modifiers));
    if (!code)
        return true; // a modifier on its own: keep listening
    if (flags == 0) {
        if (*code == RecordedKey::escapeKeyCode) {
            stopRecording();
        } else if (*code == RecordedKey::deleteKeyCode ||
                   *code == RecordedKey::forwardDeleteKeyCode) {
            setCombo(std::nullopt);
            stopRecording();
        }
        // Any other key alone would make a shortcut that steals typing.
        return true;
    }
    setCombo(KeyCombo{*code, flags});
    stopRecording();
    return true;
}

void ShortcutSetting::resetToDefault()
{
    setCombo(m_id == HotKeyCenter::ID::picker ? Preferences::defaultPickerHotKey
                                              : Preferences::defaultCopyLastHotKey);
}

void ShortcutSetting::clear()
{
    setCombo(std::nullopt);
}
