pragma ComponentBehavior: Bound

import QtQuick
import Pictray.Kit
import Pictray.Picker

// Icons offered for a search that found nothing; clicking one searches for it.
Row {
    id: row
    required property PickerModel model
    required property bool filled
    // Icon names: a QStringList, which qmllint of this Qt does not match
    // to list<string>.
    required property var names
    visible: names.length > 0
    spacing: 6

    Repeater {
        model: row.names
        // The icon with its name under it: the glyph alone does not say
        // which of several look-alikes was meant.
        Item {
            id: suggestion
            required property string modelData
            objectName: "nearMatch_" + modelData
            width: 80
            height: cell.height + 4 + caption.height
            Accessible.role: Accessible.Button
            Accessible.name: modelData
            Accessible.onPressAction: row.model.query = suggestion.modelData
            Rectangle {
                id: cell
                anchors.horizontalCenter: parent.horizontalCenter
                width: 48
                height: 48
                radius: Theme.radius
                color: area.containsMouse ? Theme.hover : Theme.card
                border.color: Theme.outline
                border.width: 1
                IconImage {
                    anchors.centerIn: parent
                    name: suggestion.modelData
                    size: 24
                    filled: row.filled
                    color: row.model.color
                }
            }
            Text {
                id: caption
                anchors.top: cell.bottom
                anchors.topMargin: 4
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                elide: Text.ElideMiddle
                text: suggestion.modelData
                color: Theme.textSecondary
                font.pixelSize: Theme.smallFontSize
            }
            MouseArea {
                id: area
                anchors.fill: parent
                hoverEnabled: true
                onClicked: row.model.query = suggestion.modelData
            }
        }
    }
}
