pragma ComponentBehavior: Bound

import QtQuick
import Pictray.Kit
import Pictray.Picker

// The results in the model's columns, created lazily as they scroll into view.
Item {
    id: grid
    required property PickerModel model
    required property PickerBindings bindings
    required property PickerController controller

    readonly property int spacing: 4
    // One tooltip for the whole grid, moved to the cell under the pointer.
    property IconCell hoveredCell: null
    // White on the light body, black on the dark one: the glyphs keep the
    // text colour so the grid stays readable (the preview shows the real one).
    readonly property string glyphColor: CssColor.legibleOn(model.color, Theme.body) ? model.color
                                                                                    : "currentColor"

    GridView {
        id: view
        objectName: "iconGrid"
        anchors.fill: parent
        // The spacing is the right and bottom part of each cell; the last
        // column's and row's part is taken off the padding.
        anchors.leftMargin: 12
        anchors.rightMargin: 12 - grid.spacing
        topMargin: 10
        bottomMargin: 10 - grid.spacing
        cellWidth: width / grid.bindings.columns
        cellHeight: 58 + grid.spacing
        clip: true
        reuseItems: true
        // Only the rows in view: rows built ahead cost some 20 KB a cell
        // and made no frame faster, a row or five scrolled at a time.
        cacheBuffer: 0
        boundsBehavior: Flickable.StopAtBounds
        // Follows the results row by row, so a keystroke rebinds the cells
        // it can keep instead of rebuilding all of them.
        model: grid.bindings.results

        // While the panel is hidden the grid keeps the selection in view as
        // its size settles, in the frame that sizes it: the panel's unseen
        // first frame then makes the cells the first opening shows, rather
        // than the top rows that opening would scroll away from.
        onHeightChanged: {
            if (height <= 0 || (Window.window && Window.window.visible))
                return
            forceLayout()
            grid.scrollToSelection()
        }

        delegate: IconCell {
            id: cell
            width: view.cellWidth - grid.spacing
            onHoveringChanged: {
                if (hovering)
                    grid.hoveredCell = cell
                else if (grid.hoveredCell === cell)
                    grid.hoveredCell = null
            }
            pickerModel: grid.model
            bindings: grid.bindings
            controller: grid.controller
            glyphColor: grid.glyphColor
        }
    }

    KitScrollBar {
        flickable: view
        anchors.top: view.top
        anchors.bottom: view.bottom
        anchors.right: view.right
    }

    HoverTip {
        parent: grid.hoveredCell ?? grid
        visible: grid.hoveredCell !== null && !grid.hoveredCell.pressed
        delay: 800
        text: grid.hoveredCell ? grid.bindings.cellHelp(grid.hoveredCell.iconName) : ""
    }

    Text {
        objectName: "emptyGridText"
        visible: grid.model.resultCount === 0
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.leftMargin: 20
        anchors.rightMargin: 20
        anchors.topMargin: 80
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
        text: grid.bindings.emptyGridText
        color: Theme.textSecondary
        font.pixelSize: 14
    }

    Connections {
        target: grid.model
        function onScrollRequestChanged() {
            scrollLater.restart()
        }
    }

    // Scrolls once the grid has taken the new results.
    Timer {
        id: scrollLater
        interval: 0
        onTriggered: grid.scrollToSelection()
    }

    // Brings the selection's row into view with as little movement as
    // possible, stopping on a row boundary so no row shows cut in half.
    function scrollToSelection() {
        if (grid.model.selectedIndex < 0) {
            view.positionViewAtBeginning()
            return
        }
        const rowHeight = view.cellHeight
        const row = Math.floor(grid.model.selectedIndex / grid.bindings.columns)
        const wholeRows = Math.max(1, Math.floor((view.height - view.topMargin - view.bottomMargin) / rowHeight))
        let first = Math.round((view.contentY - view.originY + view.topMargin) / rowHeight)
        if (row < first)
            first = row
        else if (row >= first + wholeRows)
            first = row - wholeRows + 1
        const lowest = view.originY - view.topMargin
        const highest = Math.max(lowest, view.originY + view.contentHeight + view.bottomMargin - view.height)
        // Below the first row, the gap above is the spacing only: the full
        // margin would let the bottom of the row above show through.
        const above = first > 0 ? grid.spacing : view.topMargin
        view.contentY = Math.min(highest, Math.max(lowest, view.originY + first * rowHeight - above))
    }
}
