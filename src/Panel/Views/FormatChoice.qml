import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Picker

// The copy format: a button with the current format that opens a list of
// the text formats under "Code" and the enabled PNG scales under "Image".
Rectangle {
    id: choice
    required property PickerBindings bindings

    objectName: "formatChoice"
    implicitHeight: 30
    radius: Theme.smallRadius
    color: area.containsMouse || popup.visible ? Theme.hover : Theme.field
    border.color: Theme.fieldBorder
    border.width: 1
    Accessible.role: Accessible.ComboBox
    Accessible.name: "Copy as"
    Accessible.description: bindings.formatLabel

    Text {
        objectName: "formatChoiceText"
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.right: chevron.left
        anchors.verticalCenter: parent.verticalCenter
        text: choice.bindings.formatLabel
        color: Theme.text
        font.pixelSize: 13
        elide: Text.ElideRight
    }
    IconImage {
        id: chevron
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        name: "selector"
        size: 14
        currentColor: Theme.textSecondary
    }
    MouseArea {
        id: area
        anchors.fill: parent
        hoverEnabled: true
        onClicked: popup.open()
    }

    Popup {
        id: popup
        objectName: "formatPopup"
        y: -height - 4
        margins: 8
        width: choice.width
        padding: 6
        background: Rectangle {
            color: Theme.card
            radius: Theme.radius
            border.color: Theme.outline
            border.width: 1
        }
        contentItem: Column {
            spacing: 0
            FormatGroup {
                width: parent.width
                title: "Code"
                objectName: "formatGroupCode"
                labels: choice.bindings.codeFormatLabels
                firstIndex: 0
            }
            FormatGroup {
                width: parent.width
                visible: labels.length > 0
                title: "Image"
                objectName: "formatGroupImage"
                labels: choice.bindings.imageFormatLabels
                firstIndex: choice.bindings.codeFormatLabels.length
            }
        }
    }

    component FormatGroup: Column {
        id: group
        property string title
        property var labels: []
        property int firstIndex: 0
        Text {
            objectName: group.objectName + "Title"
            leftPadding: 8
            topPadding: 4
            bottomPadding: 2
            text: group.title
            color: Theme.textTertiary
            font.pixelSize: 11
            font.weight: Font.DemiBold
        }
        Repeater {
            model: group.labels
            Rectangle {
                required property int index
                required property string modelData
                readonly property bool current: group.firstIndex + index === choice.bindings.formatIndex
                width: group.width
                height: 26
                radius: Theme.smallRadius
                color: itemArea.containsMouse ? Theme.accentFill : "transparent"
                Accessible.role: Accessible.MenuItem
                Accessible.name: modelData
                IconImage {
                    id: check
                    anchors.left: parent.left
                    anchors.leftMargin: 6
                    anchors.verticalCenter: parent.verticalCenter
                    visible: current
                    name: "check"
                    size: 14
                    currentColor: itemArea.containsMouse ? Theme.accentText : Theme.text
                }
                Text {
                    objectName: group.objectName + "Item" + index
                    anchors.left: parent.left
                    anchors.leftMargin: 26
                    anchors.verticalCenter: parent.verticalCenter
                    text: modelData
                    color: itemArea.containsMouse ? Theme.accentText : Theme.text
                    font.pixelSize: 13
                }
                MouseArea {
                    id: itemArea
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: {
                        choice.bindings.formatIndex = group.firstIndex + index
                        popup.close()
                    }
                }
            }
        }
    }
}
