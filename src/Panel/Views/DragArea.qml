import QtQuick
import Pictray.Picker

// Hands an icon to the controller as a drag once the pointer has moved the
// platform's drag distance with the button down; clicks pass as usual.
MouseArea {
    id: area
    required property PickerController controller
    required property string iconName

    property point pressPoint
    property bool dragging: false

    hoverEnabled: true
    onPressed: (mouse) => {
        pressPoint = Qt.point(mouse.x, mouse.y)
        dragging = false
    }
    onPositionChanged: (mouse) => {
        if (!pressed || dragging)
            return
        const moved = Math.abs(mouse.x - pressPoint.x) + Math.abs(mouse.y - pressPoint.y)
        if (moved >= Qt.styleHints.startDragDistance) {
            dragging = true
            area.controller.startDrag(area.iconName)
        }
    }
}
