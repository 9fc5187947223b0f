pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Windows

// The first-run walkthrough in three steps: what Pictray is, the shortcut
// that opens it, and where it lives. Closing it early brings it back at the
// next start; only finishing stores that it is done.
ApplicationWindow {
    id: window
    required property Appearance appearance
    required property AboutInfo about
    required property WindowManager windowManager
    required property SettingsForm form
    // 0, 1 or 2.
    property int step: 0
    readonly property int lastStep: 2

    title: "Welcome to Pictray"
    width: 500
    height: 440
    minimumWidth: 460
    minimumHeight: 420
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
        // Escape belongs to the recorder while it listens.
        enabled: !window.form.pickerShortcut.recording
        onActivated: window.close()
    }

    component StepTitle: Text {
        Layout.fillWidth: true
        color: Theme.text
        font.pixelSize: 22
        font.weight: Font.Bold
        wrapMode: Text.WordWrap
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    component Subtitle: Text {
        Layout.fillWidth: true
        color: Theme.textSecondary
        font.pixelSize: Theme.fontSize
        lineHeight: 1.15
        wrapMode: Text.WordWrap
    }
    component Feature: RowLayout {
        id: feature
        property string glyph
        property string title
        property string caption
        Layout.fillWidth: true
        spacing: 12
        Rectangle {
            Layout.alignment: Qt.AlignTop
            implicitWidth: 32
            implicitHeight: 32
            radius: 8
            color: Theme.accentSoft
            IconImage {
                anchors.centerIn: parent
                name: feature.glyph
                size: 18
                currentColor: Theme.accent
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2
            Text {
                text: feature.title
                color: Theme.text
                font.pixelSize: Theme.fontSize
                font.weight: Font.DemiBold
            }
            Subtitle { text: feature.caption }
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 28
        spacing: 16

        StackLayout {
            objectName: "onboardingSteps"
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: window.step

            ColumnLayout {
                spacing: 14
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
                StepTitle {
                    objectName: "onboardingTitle"
                    text: "Welcome to Pictray"
                }
                Subtitle {
                    text: window.about.iconCount.toLocaleString(Qt.locale("en_US"), "f", 0)
                          + "+ Tabler icons a keystroke away. Bundled offline, ready to paste as SVG, JSX, Vue, Blade or PNG."
                }
                Feature {
                    glyph: "search"
                    title: "Search by name or tag"
                    caption: "“arrow”, “love”, “settings”: results as you type."
                }
                Feature {
                    glyph: "code"
                    title: "Paste as code or image"
                    caption: "SVG, React, Vue, Blade, Tailwind, data URI or PNG."
                }
                Feature {
                    glyph: "drag-drop"
                    title: "Drag into any app"
                    caption: window.form.dragFeature
                }
                Item { Layout.fillHeight: true }
            }

            ColumnLayout {
                spacing: 14
                StepTitle { text: "Pick your shortcut" }
                Subtitle { text: "Open the picker with" }
                ShortcutRow {
                    objectName: "onboardingHotKey"
                    Layout.fillWidth: false
                    Layout.alignment: Qt.AlignHCenter
                    setting: window.form.pickerShortcut
                    prominent: true
                    showsReset: false
                }
                Subtitle {
                    horizontalAlignment: Text.AlignHCenter
                    text: "Works from any app. Click the field and press a new shortcut."
                }
                Card {
                    Layout.fillWidth: true
                    Layout.topMargin: 8
                    implicitHeight: switches.implicitHeight + 20
                    ColumnLayout {
                        id: switches
                        anchors.fill: parent
                        anchors.margins: 10
                        anchors.leftMargin: 14
                        anchors.rightMargin: 14
                        spacing: 10
                        SwitchRow {
                            objectName: "onboardingLaunchAtLogin"
                            label: "Launch Pictray at login"
                            enabled: window.form.login.available
                            checked: window.form.login.enabled
                            onToggled: checked => window.form.login.enabled = checked
                        }
                        SwitchRow {
                            objectName: "onboardingCloseAfterCopy"
                            label: "Close the picker after copying"
                            // On is "close"; off keeps the picker open.
                            checked: window.form.choices.afterCopy === 0
                            onToggled: checked => window.form.choices.afterCopy = checked ? 0 : 1
                        }
                    }
                }
                Item { Layout.fillHeight: true }
            }

            ColumnLayout {
                spacing: 14
                StepTitle { text: "You’re all set" }
                Subtitle {
                    objectName: "onboardingHint"
                    text: window.about.livesInTray
                }
                RowLayout {
                    spacing: 6
                    Text {
                        text: "Open with"
                        color: Theme.text
                        font.pixelSize: Theme.fontSize
                    }
                    Repeater {
                        model: window.form.pickerShortcut.keyCaps
                        KeyCap {
                            required property string modelData
                            text: modelData
                        }
                    }
                    Text {
                        visible: window.form.pickerShortcut.keyCaps.length === 0
                        text: "no shortcut"
                        color: Theme.textSecondary
                        font.pixelSize: Theme.fontSize
                    }
                }
                Item { Layout.fillHeight: true }
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 8
            Text {
                objectName: "onboardingStep"
                Layout.fillWidth: true
                text: "Step " + (window.step + 1) + " of 3"
                color: Theme.textSecondary
                font.pixelSize: Theme.smallFontSize
            }
            AccessibleButton {
                objectName: "onboardingBack"
                text: "Back"
                enabled: window.step > 0
                onClicked: window.step -= 1
            }
            AccessibleButton {
                objectName: "onboardingContinue"
                text: window.step === window.lastStep ? "Start Using Pictray" : "Continue"
                highlighted: true
                onClicked: {
                    if (window.step === window.lastStep)
                        window.windowManager.finishOnboarding();
                    else
                        window.step += 1;
                }
            }
        }
    }
}
