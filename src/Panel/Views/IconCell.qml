import QtQuick
import Pictray.Kit
import Pictray.Picker

// One icon of the grid: click selects, double click copies, dragging hands
// the icon to the controller.
Rectangle {
    id: cell
    required property int index
    required property string iconName
    // Not "model": a delegate's property of that name receives the row's data.
    required property PickerModel pickerModel
    required property PickerBindings bindings
    required property PickerController controller
    // The model's colour, or the text colour where that would not show.
    required property string glyphColor

    readonly property bool selected: index === pickerModel.selectedIndex
    readonly property bool hovering: area.containsMouse

    objectName: "cell_" + iconName
    height: 58
    radius: Theme.radius
    color: selected ? Theme.accentSoft : (hovering ? Theme.hover : "transparent")
    border.width: selected ? 1.5 : 0
    border.color: Theme.accentBorder
    Accessible.role: Accessible.ListItem
    Accessible.name: iconName
    Accessible.selected: selected

    IconImage {
        anchors.centerIn: parent
        name: cell.iconName
        size: 26
        filled: cell.bindings.filled
        color: cell.glyphColor
        currentColor: Theme.text
    }

    DragArea {
        id: area
        anchors.fill: parent
        controller: cell.controller
        iconName: cell.iconName
        onClicked: cell.pickerModel.selectedID = cell.iconName
        onDoubleClicked: {
            cell.pickerModel.selectedID = cell.iconName
            cell.pickerModel.copy()
        }
    }
    readonly property bool pressed: area.pressed
}
