import QtQuick
import QtQuick.Layouts
import Pictray.Kit

// A titled group of settings rows on a card.
ColumnLayout {
    id: section
    property alias title: heading.text
    default property alias rows: rowColumn.data
    Layout.fillWidth: true
    spacing: 6

    Text {
        id: heading
        Layout.leftMargin: 4
        color: Theme.textSecondary
        font.pixelSize: Theme.smallFontSize
        font.weight: Font.DemiBold
        font.capitalization: Font.AllUppercase
        font.letterSpacing: 0.4
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Card {
        Layout.fillWidth: true
        implicitHeight: rowColumn.implicitHeight + 20
        ColumnLayout {
            id: rowColumn
            anchors.fill: parent
            anchors.margins: 10
            anchors.leftMargin: 14
            anchors.rightMargin: 14
            spacing: 10
        }
    }
}
