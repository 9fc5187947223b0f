import QtQuick

// The windows' colours for the current appearance.
QtObject {
    readonly property bool dark: appearance ? appearance.dark : false
    readonly property color window: dark ? "#232326" : "#f4f4f6"
    readonly property color card: dark ? "#2c2c30" : "#ffffff"
    readonly property color text: dark ? "#f2f2f4" : "#1d1d1f"
    readonly property color secondaryText: dark ? "#a1a1a8" : "#6e6e76"
    readonly property color separator: dark ? "#3a3a3f" : "#dcdce0"
    readonly property color accent: "#206bc4"
    readonly property color link: dark ? "#6ea8fe" : "#206bc4"
    readonly property color button: dark ? "#3a3a3f" : "#ececef"
    readonly property color buttonBorder: dark ? "#1c1c1f" : "#b9b9bf"
}
