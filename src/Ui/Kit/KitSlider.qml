import QtQuick
import Pictray.Kit

// A slider in the palette's colours: a thin track filled in the accent and a
// round handle. It shows `value` and leaves it alone: `moved` offers each
// value the user picks with the pointer or the arrow keys, kept to
// `stepSize` steps between `from` and `to`, for the owner to take, so a
// binding of `value` keeps following the setting. Plain Qt Quick, so the
// picker loads no Controls.
Item {
    id: slider
    property real from: 0
    property real to: 1
    property real stepSize: 0
    property real value: 0
    readonly property bool pressed: area.pressed
    readonly property real visualPosition: to > from
                                           ? Math.max(0, Math.min(1, (value - from) / (to - from))) : 0
    // Read by screen readers through the slider role.
    readonly property real minimumValue: from
    readonly property real maximumValue: to
    signal moved(real value)

    implicitWidth: 200
    implicitHeight: 22
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.focusable: true

    function snapped(v) {
        const stepped = stepSize > 0 ? from + Math.round((v - from) / stepSize) * stepSize : v
        return Math.max(from, Math.min(to, stepped))
    }
    function moveTo(v) {
        const next = snapped(v)
        if (next !== value)
            moved(next)
    }
    function step(steps) {
        moveTo(value + steps * (stepSize > 0 ? stepSize : (to - from) / 100))
    }

    Keys.onLeftPressed: step(-1)
    Keys.onDownPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onUpPressed: step(1)

    Rectangle {
        id: track
        x: handle.width / 2
        width: slider.width - handle.width
        anchors.verticalCenter: parent.verticalCenter
        height: 4
        radius: 2
        color: Theme.control
        Rectangle {
            width: slider.visualPosition * parent.width
            height: parent.height
            radius: 2
            color: slider.enabled ? Theme.accent : Theme.textTertiary
        }
    }
    Rectangle {
        id: handle
        x: slider.visualPosition * (slider.width - width)
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: 16
        radius: 8
        color: slider.pressed ? Theme.pressed : Theme.keyCap
        border.color: Theme.keyCapBorder
        border.width: 1
        FocusRing {
            itemRadius: 8
            shown: slider.activeFocus
        }
    }
    MouseArea {
        id: area
        anchors.fill: parent
        preventStealing: true
        function follow(mouse) {
            const position = (mouse.x - handle.width / 2) / Math.max(1, track.width)
            slider.moveTo(slider.from + Math.max(0, Math.min(1, position)) * (slider.to - slider.from))
        }
        onPressed: mouse => {
            slider.forceActiveFocus(Qt.MouseFocusReason)
            follow(mouse)
        }
        onPositionChanged: mouse => follow(mouse)
    }
}
