import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Windows

// The first-run window: where Pictray lives and the keys that reach it.
ApplicationWindow {
    id: window
    required property Appearance appearance
    required property AboutInfo about
    required property WindowManager windowManager
    // The shortcuts as key caps; empty when there is none.
    required property var pickerKeys
    required property var copyLastKeys

    title: "Welcome to Pictray"
    width: 460
    height: 380
    minimumWidth: 420
    minimumHeight: 360
    color: colors.window
    WindowColors {
        id: colors
        appearance: window.appearance
    }
    palette {
        window: colors.window
        windowText: colors.text
        base: colors.card
        text: colors.text
        button: colors.button
        buttonText: colors.text
        highlight: colors.accent
        highlightedText: Theme.accentText
        mid: colors.buttonBorder
        dark: colors.buttonBorder
        placeholderText: colors.secondaryText
        link: colors.link
    }

    Shortcut {
        sequence: "Escape"
        onActivated: window.close()
    }

    component ShortcutRow: RowLayout {
        id: shortcutRow
        property alias title: label.text
        property var keys: []
        spacing: 4
        Text {
            id: label
            Layout.fillWidth: true
            color: Theme.text
            font.pixelSize: Theme.fontSize
        }
        Repeater {
            model: shortcutRow.keys
            KeyCap {
                required property string modelData
                text: modelData
            }
        }
        Text {
            visible: shortcutRow.keys.length === 0
            text: "None"
            color: Theme.textSecondary
            font.pixelSize: Theme.fontSize
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 28
        spacing: 18

        RowLayout {
            spacing: 16
            Rectangle {
                implicitWidth: 56
                implicitHeight: 56
                radius: 14
                color: Theme.accentFill
                IconGlyph {
                    anchors.centerIn: parent
                    width: 32
                    height: 32
                    size: 32
                    stroke: 1.75
                    name: "icons"
                    color: "#FFFFFF"
                }
            }
            ColumnLayout {
                spacing: 4
                Text {
                    objectName: "onboardingTitle"
                    text: "Welcome to Pictray"
                    color: Theme.text
                    font.pixelSize: 22
                    font.weight: Font.Bold
                }
                Text {
                    text: window.about.iconCount.toLocaleString(Qt.locale("en_US"), "f", 0)
                          + "+ Tabler icons a keystroke away."
                    color: Theme.textSecondary
                    font.pixelSize: Theme.fontSize
                }
            }
        }

        Card {
            Layout.fillWidth: true
            implicitHeight: shortcuts.implicitHeight + 28
            ColumnLayout {
                id: shortcuts
                anchors.fill: parent
                anchors.margins: 14
                spacing: 12
                ShortcutRow {
                    Layout.fillWidth: true
                    title: "Open the picker"
                    keys: window.pickerKeys
                }
                Divider { Layout.fillWidth: true }
                ShortcutRow {
                    Layout.fillWidth: true
                    title: "Copy the last icon again"
                    keys: window.copyLastKeys
                }
            }
        }

        Text {
            objectName: "onboardingHint"
            Layout.fillWidth: true
            wrapMode: Text.WordWrap
            color: Theme.textSecondary
            font.pixelSize: Theme.fontSize
            lineHeight: 1.15
            text: window.about.livesInTray
                  + " Search, then press Return to copy or drag the icon where you need it."
        }

        Item { Layout.fillHeight: true }

        Button {
            Layout.alignment: Qt.AlignRight
            text: "Start Using Pictray"
            highlighted: true
            onClicked: window.windowManager.finishOnboarding()
        }
    }
}
