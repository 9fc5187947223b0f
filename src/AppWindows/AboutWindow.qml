import QtQuick
import QtQuick.Controls

ApplicationWindow {
    id: window
    title: "About Pictray"
    width: 400
    height: aboutView.implicitHeight
    minimumWidth: 360
    minimumHeight: aboutView.implicitHeight
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

    AboutView {
        id: aboutView
        anchors.fill: parent
    }
}
