import QtQuick
import Pictray.Kit
import Pictray.Picker

// The panel's root: the arrow pointing at the tray icon (when the panel
// hangs from it), above or below the 780 x 730 body with the picker (less
// tall on a short screen).
Item {
    id: root
    required property PickerModel model
    required property PopoverState popover
    required property PickerController controller
    required property Appearance appearance

    readonly property bool hasArrow: popover.arrowX >= 0
    readonly property bool arrowDown: popover.arrowDown

    width: 780
    height: popover.bodyHeight + (hasArrow ? 11 : 0)

    Binding {
        target: Theme
        property: "dark"
        value: root.appearance.dark
    }

    PickerBindings {
        id: bindings
        model: root.model
    }

    Rectangle {
        id: body
        objectName: "popoverBody"
        x: 0
        y: root.hasArrow && !root.arrowDown ? 11 : 0
        width: 780
        height: root.popover.bodyHeight
        radius: 12
        color: Theme.body
        border.color: Theme.outline
        border.width: 1

        PickerView {
            anchors.fill: parent
            anchors.margins: 1
            model: root.model
            bindings: bindings
            controller: root.controller
        }
    }

    Arrow {
        objectName: "popoverArrow"
        visible: root.hasArrow
        down: root.arrowDown
        // The tip at arrowX; the base reaches half a point into the body.
        x: root.popover.arrowX - width / 2
        y: root.arrowDown ? body.height - overlap : 0
    }
}
