pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Picker

// Key hints: while searching how to clear and close, otherwise how to copy,
// pick a format and favourite; at the trailing end the catalogue's size or a drag hint.
Item {
    id: footer
    required property PickerModel model
    required property PickerBindings bindings

    readonly property var hints: model.isSearching
        ? [["esc", "Clear"], ["esc esc", "Close panel"]]
        : [["\u21B5", "Copy"], [bindings.formatMenuKeys, "Copy as\u2026"],
           [bindings.formatKeys, "Format"], [bindings.favoriteKeys, "Favorite"]]

    implicitHeight: 38

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        spacing: 16

        Repeater {
            model: footer.hints
            RowLayout {
                id: hint
                required property int index
                required property var modelData
                spacing: 6
                KeyCap {
                    objectName: "footerKey" + hint.index
                    text: hint.modelData[0]
                }
                Text {
                    objectName: "footerLabel" + hint.index
                    text: hint.modelData[1]
                    color: Theme.textSecondary
                    font.pixelSize: 12
                }
            }
        }
        Text {
            objectName: "footerTrailing"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignRight
            elide: Text.ElideRight
            text: footer.model.isSearching ? footer.bindings.iconCountLine
                                           : footer.bindings.dragAnyHint
            color: Theme.textTertiary
            font.pixelSize: 12
        }
    }
}
