import QtQuick
import Pictray.Kit

// A one-point line between the panel's parts.
Rectangle {
    property bool vertical: false
    implicitWidth: 1
    implicitHeight: 1
    color: Theme.divider
}
