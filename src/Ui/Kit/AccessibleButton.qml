import QtQuick
import QtQuick.Controls

// A push button a screen reader can press: in Qt 6.4 the accessibility
// press action of a Controls button emits neither clicked nor triggers its
// action, so without this the button is dead to assistive technology.
Button {
    Accessible.onPressAction: if (enabled)
        clicked()
}
