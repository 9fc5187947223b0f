import QtQuick
import QtQuick.Controls

// A push button a screen reader can press: in Qt 6.4 the accessibility
// press action of a Controls button emits neither clicked nor triggers its
// action, so without this the button is dead to assistive technology.
// Hidden, it leaves the bus, which would otherwise still list it.
Button {
    Accessible.ignored: !visible
    Accessible.onPressAction: if (enabled)
        clicked()
}
