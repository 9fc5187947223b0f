pragma Singleton
import QtQuick

// The colours of every Pictray view, light and dark: calm neutral greys and
// one blue accent. The root of each window binds `dark` to the appearance.
QtObject {
    property bool dark: false

    readonly property color accent: dark ? "#5B9BFF" : "#2F6BEB"
    // Filled accent surfaces under white text (selected chip, copy button).
    readonly property color accentFill: dark ? "#3470E0" : "#2F6BEB"
    readonly property color accentText: "#FFFFFF"
    readonly property color accentSoft: dark ? "#24354F" : "#E7EFFE"
    readonly property color accentBorder: dark ? "#4A84E6" : "#7EA5F5"

    readonly property color body: dark ? "#1E1F22" : "#F5F5F7"
    readonly property color card: dark ? "#27282C" : "#FFFFFF"
    readonly property color field: dark ? "#2C2D32" : "#FFFFFF"
    readonly property color fieldBorder: dark ? "#3A3B41" : "#D9D9DE"
    readonly property color control: dark ? "#2F3035" : "#E9E9ED"
    readonly property color controlSelected: dark ? "#45464D" : "#FFFFFF"
    readonly property color hover: dark ? "#2E2F34" : "#EBEBEF"
    readonly property color pressed: dark ? "#37383E" : "#E0E0E5"
    readonly property color divider: dark ? "#34353A" : "#E2E2E6"
    readonly property color outline: dark ? "#3C3D43" : "#DCDCE1"

    readonly property color text: dark ? "#ECECEF" : "#1D1D1F"
    readonly property color textSecondary: dark ? "#A3A4AB" : "#64656C"
    // 4.5:1 on the body and on cards, as small text needs.
    readonly property color textTertiary: dark ? "#8E8F96" : "#6E6F76"

    readonly property color keyCap: dark ? "#2E2F34" : "#FFFFFF"
    readonly property color keyCapBorder: dark ? "#45464C" : "#D4D4DA"
    readonly property color favorite: Qt.rgba(0.8392, 0.2314, 0.3412, 1)
    readonly property color shadow: dark ? "#66000000" : "#26000000"

    readonly property int radius: 8
    readonly property int smallRadius: 6
    readonly property int fontSize: 13
    readonly property int smallFontSize: 11
}
