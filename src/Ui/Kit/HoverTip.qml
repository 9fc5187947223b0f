import QtQuick
import QtQuick.Controls.Basic
import Pictray.Kit

// A tooltip in the kit's colours, so it turns dark with the panel (the
// style's own follows the desktop palette, which need not match).
ToolTip {
    id: tip
    delay: 600
    padding: 6
    // Shown and hidden by the pointer alone: Escape and clicks belong to
    // the window (the style's tooltip would take Escape to close itself).
    closePolicy: Popup.NoAutoClose
    contentItem: Text {
        text: tip.text
        color: Theme.text
        font.pixelSize: 12
        lineHeight: 1.15
    }
    background: Rectangle {
        color: Theme.card
        border.color: Theme.outline
        radius: 6
    }
}
