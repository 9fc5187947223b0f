import QtQuick
import Pictray.Kit

// The vertical scroll bar of a Flickable, placed along its right edge: a
// thin handle that shows while the content moves or the pointer is near,
// and that can be dragged or pressed to. Plain Qt Quick, so the picker
// loads no Controls.
Item {
    id: bar
    required property Flickable flickable

    readonly property real scrollRange: flickable.contentHeight + flickable.topMargin
                                        + flickable.bottomMargin - flickable.height
    readonly property real position: scrollRange > 0
                                     ? Math.max(0, Math.min(1, (flickable.contentY - flickable.originY
                                                                + flickable.topMargin) / scrollRange)) : 0
    readonly property bool active: flickable.moving || area.containsMouse || area.pressed

    width: 10
    visible: scrollRange > 0
    opacity: active ? 0.75 : 0
    Behavior on opacity {
        enabled: !bar.active
        NumberAnimation {
            duration: 450
        }
    }

    function scrollTo(handleY) {
        const room = height - handle.height
        const at = room > 0 ? Math.max(0, Math.min(1, handleY / room)) : 0
        flickable.contentY = flickable.originY - flickable.topMargin + at * scrollRange
    }

    Rectangle {
        id: handle
        x: 2
        width: bar.width - 4
        height: Math.max(24, bar.height * bar.flickable.height / (bar.scrollRange + bar.flickable.height))
        y: bar.position * (bar.height - height)
        radius: width / 2
        color: area.pressed ? Theme.textSecondary : Theme.textTertiary
    }
    MouseArea {
        id: area
        property real grab: 0
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            const onHandle = mouse.y >= handle.y && mouse.y < handle.y + handle.height
            grab = onHandle ? mouse.y - handle.y : handle.height / 2
            bar.scrollTo(mouse.y - grab)
        }
        onPositionChanged: mouse => {
            if (pressed)
                bar.scrollTo(mouse.y - grab)
        }
    }
}
