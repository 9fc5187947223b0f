import QtQuick
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Picker

// The search field with its count and clear button, the style switch and
// the settings button.
Item {
    id: row
    required property PickerModel model
    required property PickerBindings bindings
    required property PickerController controller

    implicitHeight: 56

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        anchors.topMargin: 12
        anchors.bottomMargin: 8
        spacing: 10

        Rectangle {
            id: field
            Layout.fillWidth: true
            Layout.fillHeight: true
            radius: Theme.radius
            color: Theme.field
            border.width: input.activeFocus ? 2 : 1
            border.color: input.activeFocus ? Theme.accentBorder : Theme.fieldBorder

            IconImage {
                id: searchGlyph
                anchors.left: parent.left
                anchors.leftMargin: 10
                anchors.verticalCenter: parent.verticalCenter
                name: "search"
                size: 16
                currentColor: Theme.textSecondary
            }

            TextInput {
                id: input
                objectName: "searchField"
                anchors.left: searchGlyph.right
                anchors.leftMargin: 8
                anchors.right: trailing.left
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                text: row.model.query
                onTextEdited: row.model.query = text
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.accentText
                font.pixelSize: 14
                clip: true
                focus: true
                activeFocusOnTab: true
                Accessible.role: Accessible.EditableText
                Accessible.name: row.model.placeholder

                Text {
                    objectName: "searchPlaceholder"
                    anchors.fill: parent
                    verticalAlignment: Text.AlignVCenter
                    visible: input.text.length === 0
                    text: row.model.placeholder
                    color: Theme.textTertiary
                    font: input.font
                    elide: Text.ElideRight
                }
            }

            Row {
                id: trailing
                anchors.right: parent.right
                anchors.rightMargin: 6
                anchors.verticalCenter: parent.verticalCenter
                spacing: 6

                Text {
                    objectName: "resultCount"
                    anchors.verticalCenter: parent.verticalCenter
                    visible: text.length > 0
                    text: row.model.countLabel
                    color: Theme.textTertiary
                    font.pixelSize: 12
                }
                IconButton {
                    objectName: "clearSearch"
                    visible: input.text.length > 0
                    iconName: "x"
                    iconSize: 14
                    width: 22
                    height: 22
                    radius: 11
                    accessibleName: "Clear search"
                    takesFocus: false // Escape clears from anywhere
                    onClicked: {
                        row.model.query = ""
                        input.forceActiveFocus()
                    }
                }
            }
        }

        SegmentedControl {
            objectName: "styleControl"
            Layout.fillHeight: true
            segments: ["Outline", "Filled"]
            currentIndex: row.bindings.filled ? 1 : 0
            onActivated: (index) => row.bindings.filled = index === 1
            Accessible.name: "Icon style"
        }

        IconButton {
            objectName: "settingsButton"
            Layout.preferredWidth: 36
            Layout.fillHeight: true
            iconName: "settings"
            accessibleName: "Settings"
            toolTip: "Settings"
            onClicked: row.controller.openSettings()
        }
    }

    Connections {
        target: row.model
        function onFocusSearchChanged() { input.forceActiveFocus() }
    }
}
