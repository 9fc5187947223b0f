pragma ComponentBehavior: Bound

import QtQuick
import Pictray.Kit

// A row of mutually exclusive segments on a sunken track.
Rectangle {
    id: control
    property var segments: []
    property int currentIndex: 0
    signal activated(int index)

    implicitWidth: segmentRow.implicitWidth + 4
    implicitHeight: 28
    radius: Theme.smallRadius
    color: Theme.control
    Accessible.role: Accessible.PageTabList
    activeFocusOnTab: true
    Keys.onLeftPressed: activated(Math.max(0, currentIndex - 1))
    Keys.onRightPressed: activated(Math.min(segments.length - 1, currentIndex + 1))
    Keys.onSpacePressed: activated((currentIndex + 1) % segments.length)

    FocusRing {
        itemRadius: control.radius
    }

    Row {
        id: segmentRow
        anchors.fill: parent
        anchors.margins: 2
        Repeater {
            model: control.segments
            Rectangle {
                id: segment
                required property int index
                required property string modelData
                readonly property bool current: index === control.currentIndex
                // As wide as in bold, so choosing a segment moves nothing.
                width: Math.max(64, Math.ceil(boldLabel.advanceWidth) + 24)
                height: segmentRow.height
                radius: Theme.smallRadius - 2
                color: current ? Theme.controlSelected : (hoverArea.containsMouse ? Theme.hover : "transparent")
                border.width: current && !Theme.dark ? 1 : 0
                border.color: Theme.outline
                Accessible.role: Accessible.PageTab
                Accessible.name: modelData
                Accessible.selectable: true
                Accessible.selected: current
                Accessible.onPressAction: control.activated(segment.index)
                TextMetrics {
                    id: boldLabel
                    font.pixelSize: 12
                    font.weight: Font.DemiBold
                    text: segment.modelData
                }
                Text {
                    id: label
                    objectName: control.objectName + "Segment" + segment.index
                    anchors.centerIn: parent
                    text: segment.modelData
                    color: segment.current ? Theme.text : Theme.textSecondary
                    font.pixelSize: 12
                    font.weight: segment.current ? Font.DemiBold : Font.Normal
                }
                MouseArea {
                    id: hoverArea
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: control.activated(segment.index)
                }
            }
        }
    }
}
