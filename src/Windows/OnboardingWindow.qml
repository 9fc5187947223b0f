import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// The first-run window: where Pictray lives and how to open it.
ApplicationWindow {
    id: window
    // The picker shortcut as key caps joined by "+"; empty when there is none.
    required property string shortcutText

    title: "Welcome to Pictray"
    width: 440
    height: 300
    minimumWidth: 400
    minimumHeight: 280
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

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 28
        spacing: 12

        Label {
            text: "Welcome to Pictray"
            font.pixelSize: 22
            font.weight: Font.Bold
            color: colors.text
        }
        Label {
            Layout.fillWidth: true
            wrapMode: Text.WordWrap
            color: colors.text
            text: about.iconCount.toLocaleString(Qt.locale("en_US"), "f", 0)
                  + "+ Tabler icons a keystroke away."
        }
        Label {
            Layout.fillWidth: true
            wrapMode: Text.WordWrap
            color: colors.secondaryText
            text: window.shortcutText.length > 0
                  ? "Pictray lives in your tray. Click its icon or press " + window.shortcutText
                    + " from any app."
                  : "Pictray lives in your tray. Click its icon to open the picker."
        }
        Item { Layout.fillHeight: true }
        Button {
            Layout.alignment: Qt.AlignRight
            text: "Start Using Pictray"
            highlighted: true
            onClicked: windowManager.finishOnboarding()
        }
    }
}
