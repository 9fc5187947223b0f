import QtQuick
import QtQuick.Controls
import Pictray.Kit
import Pictray.Windows

ApplicationWindow {
    id: window
    required property Appearance appearance
    required property AboutInfo about
    title: "About Pictray"
    width: 400
    height: aboutView.implicitHeight
    minimumWidth: 360
    minimumHeight: aboutView.implicitHeight
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

    AboutView {
        id: aboutView
        about: window.about
        anchors.fill: parent
    }
}
