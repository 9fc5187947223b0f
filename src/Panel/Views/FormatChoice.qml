pragma ComponentBehavior: Bound

import QtQuick
import Pictray.Kit
import Pictray.Picker

// The copy format: a button with the current format that opens the list the
// Ctrl+Return menu shows too: the code formats under "Code" and the enabled
// PNG scales under "Image", each with its glyph and its key.
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
    activeFocusOnTab: true
    Keys.onSpacePressed: popup.open()

    FocusRing {
        itemRadius: choice.radius
    }

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

    // The list, drawn over the window's content above the button while open.
    // It has the keys then: the arrows move the highlight, Return picks it,
    // Escape or a press elsewhere closes it.
    Rectangle {
        id: popup
        objectName: "formatPopup"
        parent: choice.Window.window ? choice.Window.window.contentItem : choice
        property bool opened: false
        // The panel leaves the keys to whatever has the focus inside this.
        readonly property bool keepsKeys: true
        property int highlighted: -1
        readonly property int count: choice.bindings.codeFormats.count
                                     + choice.bindings.imageFormats.count
        readonly property int margin: 8
        visible: opened
        z: 900
        width: choice.width
        height: list.implicitHeight + 12
        color: Theme.card
        radius: Theme.radius
        border.color: Theme.outline
        border.width: 1

        function open() {
            if (opened)
                return
            highlighted = choice.bindings.formatIndex
            const at = choice.mapToItem(parent, 0, 0)
            x = Math.max(margin, Math.min(parent.width - width - margin, at.x))
            y = Math.max(margin, at.y - height - 4)
            opened = true
            list.forceActiveFocus()
        }
        function close() {
            if (!opened)
                return
            opened = false
            // Typing goes back to the search field.
            choice.bindings.model.requestSearchFocus()
        }
        function pick(index) {
            choice.bindings.formatIndex = index
            close()
        }

        Column {
            id: list
            x: 6
            y: 6
            width: parent.width - 12
            spacing: 0
            Keys.onUpPressed: popup.highlighted = Math.max(0, popup.highlighted - 1)
            Keys.onDownPressed: popup.highlighted = Math.min(popup.count - 1, popup.highlighted + 1)
            Keys.onReturnPressed: popup.pick(popup.highlighted)
            Keys.onEnterPressed: popup.pick(popup.highlighted)
            Keys.onEscapePressed: popup.close()
            // Other keys stop here, as they would in a menu.
            Keys.onPressed: event => event.accepted = true
            FormatGroup {
                width: parent.width
                title: "Code"
                objectName: "formatGroupCode"
                formats: choice.bindings.codeFormats
                firstIndex: 0
            }
            FormatGroup {
                width: parent.width
                visible: formats.count > 0
                title: "Image"
                objectName: "formatGroupImage"
                formats: choice.bindings.imageFormats
                firstIndex: choice.bindings.codeFormats.count
            }
        }
    }
    // A press anywhere else closes the list and goes on to what it was on.
    MouseArea {
        parent: popup.parent
        anchors.fill: parent
        z: 899
        visible: popup.opened
        onPressed: mouse => {
            popup.close()
            mouse.accepted = false
        }
    }

    component FormatGroup: Column {
        id: group
        property string title
        property FormatListModel formats
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
            model: group.formats
            Rectangle {
                id: formatItem
                required property int index
                required property string label
                required property string glyph
                required property string keys
                readonly property int formatIndex: group.firstIndex + index
                readonly property bool current: formatIndex === choice.bindings.formatIndex
                readonly property bool highlighted: formatIndex === popup.highlighted
                width: group.width
                height: 26
                radius: Theme.smallRadius
                color: highlighted ? Theme.accentFill : "transparent"
                Accessible.role: Accessible.MenuItem
                Accessible.name: label
                Accessible.description: keys
                IconImage {
                    anchors.left: parent.left
                    anchors.leftMargin: 6
                    anchors.verticalCenter: parent.verticalCenter
                    visible: formatItem.current
                    name: "check"
                    size: 14
                    currentColor: formatItem.highlighted ? Theme.accentText : Theme.text
                }
                IconImage {
                    anchors.left: parent.left
                    anchors.leftMargin: 26
                    anchors.verticalCenter: parent.verticalCenter
                    name: formatItem.glyph
                    size: 14
                    currentColor: formatItem.highlighted ? Theme.accentText : Theme.textSecondary
                }
                Text {
                    objectName: group.objectName + "Item" + formatItem.index
                    anchors.left: parent.left
                    anchors.leftMargin: 48
                    anchors.right: keyText.left
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    text: formatItem.label
                    color: formatItem.highlighted ? Theme.accentText : Theme.text
                    font.pixelSize: 13
                    elide: Text.ElideRight
                }
                Text {
                    id: keyText
                    objectName: group.objectName + "Keys" + formatItem.index
                    anchors.right: parent.right
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    text: formatItem.keys
                    color: formatItem.highlighted ? Theme.accentText : Theme.textTertiary
                    font.pixelSize: 12
                }
                MouseArea {
                    anchors.fill: parent
                    hoverEnabled: true
                    onEntered: popup.highlighted = formatItem.formatIndex
                    onClicked: popup.pick(formatItem.formatIndex)
                }
            }
        }
    }
}
