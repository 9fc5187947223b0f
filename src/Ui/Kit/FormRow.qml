import QtQuick
import Pictray.Kit
import QtQuick.Layouts

// One labelled row of a form or inspector: a caption above its content.
ColumnLayout {
    id: row
    property alias title: caption.text
    property alias trailing: trailingText.text
    property alias captionItem: caption
    // Small controls shown between the caption and the trailing text.
    property alias accessory: accessorySlot.data
    spacing: 6

    RowLayout {
        Layout.fillWidth: true
        Text {
            id: caption
            objectName: row.objectName + "Title"
            color: Theme.textSecondary
            font.pixelSize: Theme.smallFontSize
            font.weight: Font.DemiBold
            font.capitalization: Font.AllUppercase
            font.letterSpacing: 0.4
        }
        Item { Layout.fillWidth: true }
        Item {
            id: accessorySlot
            implicitWidth: childrenRect.width
            implicitHeight: childrenRect.height
        }
        Text {
            id: trailingText
            objectName: row.objectName + "Value"
            visible: text.length > 0
            color: Theme.textSecondary
            font.pixelSize: Theme.smallFontSize
        }
    }
}
