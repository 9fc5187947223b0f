pragma ComponentBehavior: Bound

import QtQuick
import Pictray.Kit
import Pictray.Picker

// One chip per tab, scrolling sideways; arrow buttons page the row when it
// overflows, and the wheel scrolls it.
Item {
    id: row
    required property PickerModel model
    required property PickerBindings bindings

    implicitHeight: 40
    Accessible.role: Accessible.PageTabList
    Accessible.name: "Collections"

    IconButton {
        id: leftButton
        objectName: "chipsLeft"
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: list.verticalCenter
        width: 24
        height: 24
        iconName: "chevron-left"
        iconSize: 14
        enabled: wheel.canLeft
        accessibleName: "Scroll collections left"
        takesFocus: false
        onClicked: wheel.page(-1)
    }

    ListView {
        id: list
        objectName: "chipsList"
        anchors.left: leftButton.right
        anchors.right: rightButton.left
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 8
        orientation: ListView.Horizontal
        spacing: 6
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: row.bindings.tabTitles
        currentIndex: row.bindings.tabIndex
        highlightFollowsCurrentItem: false
        // One Tab stop for the row; the arrows then choose the collection.
        activeFocusOnTab: true
        keyNavigationEnabled: false
        Keys.onLeftPressed: row.bindings.tabIndex = Math.max(0, row.bindings.tabIndex - 1)
        Keys.onRightPressed: row.bindings.tabIndex = Math.min(count - 1, row.bindings.tabIndex + 1)
        // Keeps the chosen chip in sight when the tab changes from elsewhere.
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

        delegate: Rectangle {
            id: chip
            required property int index
            required property string modelData
            readonly property bool current: index === row.bindings.tabIndex
            readonly property string iconName: row.bindings.tabIcons[index] || ""
            objectName: "chip" + index
            height: ListView.view.height
            width: chipContent.implicitWidth + 22
            radius: height / 2
            color: current ? Theme.accentFill : (chipArea.containsMouse ? Theme.hover : Theme.control)
            Accessible.role: Accessible.PageTab
            Accessible.name: modelData
            Accessible.selectable: true
            Accessible.selected: current
            Accessible.onPressAction: row.bindings.tabIndex = index

            Row {
                id: chipContent
                anchors.centerIn: parent
                spacing: 5
                IconImage {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: chip.iconName.length > 0
                    name: chip.iconName
                    size: 14
                    currentColor: chip.current ? Theme.accentText : Theme.textSecondary
                }
                // As wide as in bold, so choosing a chip moves nothing.
                TextMetrics {
                    id: boldChipText
                    font.pixelSize: 12
                    font.weight: Font.DemiBold
                    text: chip.modelData
                }
                Text {
                    objectName: "chipText" + chip.index
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.ceil(boldChipText.advanceWidth)
                    horizontalAlignment: Text.AlignHCenter
                    text: chip.modelData
                    color: chip.current ? Theme.accentText : Theme.text
                    font.pixelSize: 12
                    font.weight: chip.current ? Font.DemiBold : Font.Normal
                }
            }
            FocusRing {
                itemRadius: chip.radius
                shown: chip.current && list.activeFocus
            }
            MouseArea {
                id: chipArea
                anchors.fill: parent
                hoverEnabled: true
                onClicked: row.bindings.tabIndex = chip.index
            }
        }
    }

    // Soft edges where more chips lie beyond.
    Rectangle {
        anchors.left: list.left
        anchors.top: list.top
        anchors.bottom: list.bottom
        width: 28
        visible: wheel.canLeft
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: Theme.body }
            GradientStop { position: 1; color: Qt.rgba(Theme.body.r, Theme.body.g, Theme.body.b, 0) }
        }
    }
    Rectangle {
        anchors.right: list.right
        anchors.top: list.top
        anchors.bottom: list.bottom
        width: 28
        visible: wheel.canRight
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: Qt.rgba(Theme.body.r, Theme.body.g, Theme.body.b, 0) }
            GradientStop { position: 1; color: Theme.body }
        }
    }

    WheelToHorizontal {
        id: wheel
        objectName: "chipsWheel"
        anchors.fill: list
        target: list
    }

    IconButton {
        id: rightButton
        objectName: "chipsRight"
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: list.verticalCenter
        width: 24
        height: 24
        iconName: "chevron-right"
        iconSize: 14
        enabled: wheel.canRight
        accessibleName: "Scroll collections right"
        takesFocus: false
        onClicked: wheel.page(1)
    }
}
