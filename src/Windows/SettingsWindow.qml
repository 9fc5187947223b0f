import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// Settings in three tabs; the window is titled after the tab shown.
ApplicationWindow {
    id: window
    // 0 General, 1 Copy, 2 About: set by the window manager, changed by the tabs.
    property int currentTab: 0
    readonly property var tabLabels: ["General", "Copy", "About"]
    readonly property var tabGlyphs: ["settings", "code", "info-circle"]

    title: tabLabels[currentTab]
    width: 560
    height: 520
    minimumWidth: 480
    minimumHeight: 460
    color: colors.window
    WindowColors { id: colors }
    palette {
        window: colors.window
        windowText: colors.text
        base: colors.card
        alternateBase: colors.window
        text: colors.text
        button: colors.button
        buttonText: colors.text
        highlight: colors.accent
        highlightedText: "#ffffff"
        light: Qt.lighter(colors.button, 1.2)
        midlight: Qt.lighter(colors.button, 1.1)
        mid: colors.buttonBorder
        dark: colors.buttonBorder
        shadow: "#000000"
        placeholderText: colors.secondaryText
        link: colors.link
    }

    onCurrentTabChanged: tabs.currentIndex = currentTab

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        TabBar {
            id: tabs
            Layout.fillWidth: true
            currentIndex: window.currentTab
            onCurrentIndexChanged: window.currentTab = currentIndex
            Repeater {
                model: window.tabLabels
                TabButton {
                    required property string modelData
                    required property int index
                    text: modelData
                    icon.source: "image://glyph/" + window.tabGlyphs[index]
                    icon.width: 18
                    icon.height: 18
                    icon.color: colors.text
                }
            }
        }
        StackLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: window.currentTab

            PlaceholderPane {
                title: "General"
                note: "Shortcuts, where the picker opens, what happens after a copy and the appearance will be set here."
            }
            PlaceholderPane {
                title: "Copy"
                note: "The default format, style, colour, size and stroke, and the options of each code format will be set here."
            }
            AboutView {}
        }
    }
}
