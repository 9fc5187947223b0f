import QtQuick
import Pictray.Kit

// The windows' colours: the kit's palette. The one a window makes with its
// appearance sets the palette to follow it.
QtObject {
    id: colors
    property Appearance appearance: null

    readonly property bool dark: Theme.dark
    readonly property color window: Theme.body
    readonly property color card: Theme.card
    readonly property color text: Theme.text
    readonly property color secondaryText: Theme.textSecondary
    readonly property color separator: Theme.divider
    readonly property color accent: Theme.accentFill
    readonly property color link: Theme.accent
    readonly property color button: Theme.control
    readonly property color buttonBorder: Theme.fieldBorder

    property Binding followAppearance: Binding {
        when: colors.appearance !== null
        target: Theme
        property: "dark"
        value: colors.appearance !== null && colors.appearance.dark
    }
}
