import QtQuick
import Pictray.Kit

// A key as printed on a keyboard, for the shortcut hints.
Rectangle {
    id: cap
    property alias text: label.text
    implicitWidth: Math.max(22, label.implicitWidth + 12)
    implicitHeight: 20
    radius: 5
    color: Theme.keyCap
    border.color: Theme.keyCapBorder
    border.width: 1

    // The key's lower edge, as on a real cap.
    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 1
        height: 2
        radius: 2
        color: Theme.keyCapBorder
        opacity: 0.6
    }
    Text {
        id: label
        objectName: cap.objectName + "Text"
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -1
        color: Theme.textSecondary
        font.pixelSize: 11
        font.weight: Font.Medium
    }
}
