import QtQuick
import Pictray.Kit
import Pictray.Picker

// The popover's pointer: an isosceles triangle 22 wide and 11 high, tip at
// the top centre (or at the bottom when `down`), in the body's colour. Drawn
// as the upper half of a square turned by 45 degrees, with the body's border
// on its slanted sides; the overlap covers the body's border under its base.
Item {
    id: arrow
    property bool down: false
    readonly property real overlap: 1.5

    width: 22
    height: 11 + overlap
    clip: true

    Rectangle {
        width: 22 / Math.SQRT2
        height: width
        x: (arrow.width - width) / 2
        // The square's widest line lies on the body's edge.
        y: (arrow.down ? arrow.overlap : 11) - height / 2
        rotation: 45
        antialiasing: true
        color: Theme.body
        border.color: Theme.outline
        border.width: 1
    }
}
