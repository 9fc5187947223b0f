import QtQuick
import Pictray.Kit

// A borderless button showing one catalogue icon.
Rectangle {
    id: button
    property string iconName
    property real iconSize: 18
    property string accessibleName
    property string toolTip
    property color iconColor: Theme.textSecondary
    property bool iconFilled: false
    // Scrolling aids and the like stay out of the Tab order.
    property bool takesFocus: true
    signal clicked

    implicitWidth: 32
    implicitHeight: 32
    radius: Theme.smallRadius
    color: area.pressed ? Theme.pressed : (area.containsMouse ? Theme.hover : "transparent")
    opacity: enabled ? 1 : 0.4
    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    Accessible.onPressAction: button.clicked()
    activeFocusOnTab: takesFocus && enabled && visible
    Keys.onSpacePressed: button.clicked()

    IconImage {
        anchors.centerIn: parent
        name: button.iconName
        size: button.iconSize
        filled: button.iconFilled
        currentColor: button.iconColor
    }
    MouseArea {
        id: area
        anchors.fill: parent
        hoverEnabled: true
        onClicked: button.clicked()
    }
    FocusRing {
        itemRadius: button.radius
    }
    HoverTip {
        visible: button.toolTip.length > 0 && area.containsMouse
        text: button.toolTip
    }
}
