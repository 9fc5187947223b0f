pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Pictray.Kit

// A settings tab whose form is still to come: what it will hold, and the
// commands that change those settings meanwhile.
Item {
    id: pane
    property string title
    property string note
    property var commands: []

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.min(parent.width - 48, 420)
        spacing: 10
        Text {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: pane.title
            font.pixelSize: 17
            font.weight: Font.DemiBold
            color: Theme.text
        }
        Text {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: pane.note
            color: Theme.textSecondary
            font.pixelSize: Theme.fontSize
        }
        Card {
            visible: pane.commands.length > 0
            Layout.fillWidth: true
            Layout.topMargin: 8
            implicitHeight: commandList.implicitHeight + 24
            Column {
                id: commandList
                anchors.fill: parent
                anchors.margins: 12
                spacing: 6
                Text {
                    text: "Meanwhile, from a terminal:"
                    color: Theme.textSecondary
                    font.pixelSize: Theme.smallFontSize
                }
                Repeater {
                    model: pane.commands
                    TextEdit {
                        required property string modelData
                        width: commandList.width
                        text: modelData
                        readOnly: true
                        selectByMouse: true
                        wrapMode: Text.WrapAnywhere
                        color: Theme.text
                        selectionColor: Theme.accentFill
                        font.family: "monospace"
                        font.pixelSize: Theme.smallFontSize + 1
                    }
                }
            }
        }
    }
}
