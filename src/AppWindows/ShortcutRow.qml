import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Windows

// A global shortcut: its recorder, a button back to the default, and a line
// when another program holds the combination. Where the desktop decides the
// keys, its note stands in place of the recorder, with a button to the
// desktop's own shortcut settings when it has them.
ColumnLayout {
    id: row
    required property ShortcutSetting setting
    property string label
    property bool prominent: false
    property bool showsReset: true
    Layout.fillWidth: true
    spacing: 4

    RowLayout {
        Layout.fillWidth: true
        spacing: 8
        Text {
            Layout.fillWidth: true
            visible: row.label.length > 0
            text: row.label
            color: Theme.text
            font.pixelSize: Theme.fontSize
        }
        ShortcutRecorder {
            objectName: row.objectName + "Recorder"
            visible: !row.setting.desktopOwned
            Layout.alignment: Qt.AlignVCenter
            prominent: row.prominent
            keyCaps: row.setting.keyCaps
            recording: row.setting.recording
            accessibleName: row.setting.accessibleName
            accessibleDescription: row.label
            onToggled: row.setting.toggleRecording()
            onCleared: row.setting.clear()
            onKeyPressed: (key, modifiers, nativeScanCode) => row.setting.press(key, modifiers,
                                                                                nativeScanCode)
        }
        AccessibleButton {
            objectName: row.objectName + "Reset"
            visible: row.showsReset && !row.setting.desktopOwned
            text: "Reset"
            Accessible.name: text
            Accessible.description: "Restores the default shortcut to " + row.label
            onClicked: row.setting.resetToDefault()
        }
        AccessibleButton {
            objectName: row.objectName + "DesktopSettings"
            visible: row.setting.canOpenDesktopSettings
            text: "Change…"
            Accessible.name: text
            Accessible.description: "Opens the desktop's shortcut settings for " + row.label
            onClicked: row.setting.openDesktopSettings()
        }
    }
    Text {
        objectName: row.objectName + "Refusal"
        Layout.alignment: row.setting.desktopOwned ? Qt.AlignLeft : Qt.AlignRight
        Layout.fillWidth: row.setting.desktopOwned
        visible: text.length > 0
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: !visible
        wrapMode: Text.WordWrap
        text: row.setting.refusal
        color: row.setting.desktopOwned ? Theme.textSecondary : Theme.favorite
        font.pixelSize: Theme.smallFontSize
    }
}
