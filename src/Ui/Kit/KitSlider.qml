import QtQuick
import QtQuick.Controls.Basic
import Pictray.Kit

// A slider in the palette's colours: a thin track filled in the accent.
Slider {
    id: slider
    implicitHeight: 22

    background: Rectangle {
        x: slider.leftPadding
        y: slider.topPadding + slider.availableHeight / 2 - height / 2
        width: slider.availableWidth
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
    handle: Rectangle {
        x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
        y: slider.topPadding + slider.availableHeight / 2 - height / 2
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
}
