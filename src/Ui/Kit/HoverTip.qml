import QtQuick
import Pictray.Kit

// A tooltip in the kit's colours for the item it is declared in: `visible`
// asks for it and it shows `delay` later, centred above that item (below it
// where the window has no room above), inside the window and over every
// other item. Plain Qt Quick, so a view that needs nothing else from the
// Controls does not load them; the pointer alone shows and hides it, and
// Escape and clicks stay the window's.
Item {
    id: tip
    property string text
    property int delay: 600

    readonly property Item target: parent
    readonly property int margin: 6

    width: 0
    height: 0
    onVisibleChanged: visible ? wait.restart() : hide()
    onTextChanged: if (box.visible) place()
    onTargetChanged: if (box.visible) place()
    Component.onCompleted: if (visible) wait.restart()

    function hide() {
        wait.stop()
        box.visible = false
    }
    // Where the target is now: set once shown, since a binding would not
    // follow the target's ancestors moving.
    function place() {
        const root = box.parent
        if (!root || !target)
            return
        const top = target.mapToItem(root, target.width / 2, 0)
        box.x = Math.max(margin, Math.min(root.width - box.width - margin, top.x - box.width / 2))
        const above = top.y - box.height - 3
        box.y = above >= margin ? above : top.y + target.height + 3
    }

    Timer {
        id: wait
        interval: tip.delay
        onTriggered: {
            if (!tip.visible || tip.text.length === 0)
                return
            tip.place()
            box.visible = true
        }
    }

    Rectangle {
        id: box
        objectName: "hoverTip"
        parent: tip.Window.window ? tip.Window.window.contentItem : tip
        visible: false
        z: 1000
        width: label.implicitWidth + 12
        height: label.implicitHeight + 12
        color: Theme.card
        border.color: Theme.outline
        radius: 6

        Text {
            id: label
            objectName: "hoverTipText"
            x: 6
            y: 6
            text: tip.text
            color: Theme.text
            font.pixelSize: 12
            lineHeight: 1.15
        }
    }
    Component.onDestruction: box.visible = false
}
