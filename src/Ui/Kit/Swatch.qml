import QtQuick
import Pictray.Kit

// One colour sample; "currentColor" shows as half text colour, half body.
Item {
    id: swatch
    property string value
    property string label
    property bool selected: false
    // The row of swatches has the focus and this is its choice.
    property bool focusShown: false
    signal clicked

    implicitWidth: 24
    implicitHeight: 24
    Accessible.role: Accessible.RadioButton
    Accessible.name: label
    Accessible.checked: selected

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: "transparent"
        border.width: 2
        border.color: swatch.selected ? Theme.accent : (area.containsMouse ? Theme.outline : "transparent")
    }
    Rectangle {
        id: sample
        anchors.fill: parent
        anchors.margins: 4
        radius: width / 2
        objectName: "swatchSample"
        color: CssColor.parse(swatch.value, Theme.text)
        clip: true
        Rectangle {
            visible: swatch.value.charAt(0) !== "#"
            width: parent.width / 2
            height: parent.height
            anchors.right: parent.right
            color: Theme.card
        }
    }
    // Over the halves, so the light half keeps its edge.
    Rectangle {
        anchors.fill: sample
        radius: width / 2
        color: "transparent"
        border.width: 1
        border.color: Qt.rgba(Theme.text.r, Theme.text.g, Theme.text.b, 0.18)
    }
    MouseArea {
        id: area
        anchors.fill: parent
        hoverEnabled: true
        onClicked: swatch.clicked()
    }
    FocusRing {
        itemRadius: swatch.width / 2
        shown: swatch.focusShown
    }
    HoverTip {
        visible: area.containsMouse
        text: swatch.label
    }
}
