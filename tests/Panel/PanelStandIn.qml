// Stands in for the picker's views in the panel's tests: the same required
// properties, a body in the panel's size and a search field with the focus.
import QtQuick

Item {
    required property QtObject model
    required property QtObject popover
    required property QtObject controller
    required property QtObject appearance

    width: 780
    height: popover.hasArrow ? 741 : 730

    Rectangle {
        y: popover.hasArrow && !popover.arrowDown ? 11 : 0
        width: 780
        height: 730
        radius: 12
        color: appearance.dark ? "#1e1e1e" : "#f5f5f5"
    }

    // Where the views' copy button would be.
    Connections {
        target: controller
        function onFormatMenuRequested() { controller.openFormatMenu(Qt.rect(480, 680, 240, 36)) }
    }

    TextInput {
        objectName: "searchField"
        focus: true
        width: 300
        height: 24
        text: model.query
        onTextEdited: model.query = text
    }
}
