import QtQuick
import QtQuick.Controls

// A settings tab whose form is still to come.
Item {
    id: pane
    property string title
    property string note
    WindowColors { id: colors }

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 48, 360)
        spacing: 8
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: pane.title
            font.pixelSize: 17
            font.weight: Font.DemiBold
            color: colors.text
        }
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: pane.note
            color: colors.secondaryText
        }
    }
}
