pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Windows

// Settings in three tabs; the window is titled after the tab shown.
ApplicationWindow {
    id: window
    required property Appearance appearance
    required property AboutInfo about
    required property SettingsForm form
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
    WindowColors {
        id: colors
        appearance: window.appearance
    }
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

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        // The tabs as a toolbar: a glyph above each label, the current one
        // on a tinted plate.
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 68
            color: Theme.card
            Row {
                id: tabs
                objectName: "settingsTabs"
                anchors.centerIn: parent
                spacing: 6
                Accessible.role: Accessible.PageTabList
                Accessible.name: "Settings"
                Repeater {
                    model: window.tabLabels
                    Rectangle {
                        id: tab
                        required property string modelData
                        required property int index
                        readonly property bool current: window.currentTab === index
                        width: 76
                        height: 54
                        radius: Theme.radius
                        color: current ? Theme.accentSoft : (tabArea.containsMouse ? Theme.hover : "transparent")
                        Accessible.role: Accessible.PageTab
                        Accessible.name: modelData
                        Accessible.selectable: true
                        Accessible.selected: current
                        Accessible.onPressAction: window.currentTab = index
                        Column {
                            anchors.centerIn: parent
                            spacing: 4
                            IconImage {
                                anchors.horizontalCenter: parent.horizontalCenter
                                size: 22
                                name: window.tabGlyphs[tab.index]
                                currentColor: tab.current ? Theme.accent : Theme.text
                            }
                            Text {
                                anchors.horizontalCenter: parent.horizontalCenter
                                text: tab.modelData
                                color: tab.current ? Theme.accent : Theme.text
                                font.pixelSize: Theme.smallFontSize + 1
                                font.weight: tab.current ? Font.DemiBold : Font.Normal
                            }
                        }
                        MouseArea {
                            id: tabArea
                            anchors.fill: parent
                            hoverEnabled: true
                            onClicked: window.currentTab = tab.index
                        }
                    }
                }
            }
            Divider {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.bottom: parent.bottom
            }
        }
        StackLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: window.currentTab

            GeneralSettingsView { form: window.form }
            CopySettingsView { form: window.form }
            AboutView { about: window.about }
        }
    }
}
