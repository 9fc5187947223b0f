import QtQuick
import Pictray.Kit

// The keyboard focus, drawn just outside the item it is placed in while
// `shown` (by default, while that item has the focus).
Rectangle {
    property real itemRadius: Theme.smallRadius
    property bool shown: parent !== null && parent.activeFocus

    anchors.fill: parent
    anchors.margins: -3
    radius: itemRadius + 3
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    visible: shown
}
