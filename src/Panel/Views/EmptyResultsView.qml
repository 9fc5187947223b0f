pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Picker

// Shown instead of the grid when a search finds nothing: why, what is close,
// and where to ask for a new icon.
Item {
    id: empty
    required property PickerModel model
    required property PickerBindings bindings

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.min(parent.width - 80, 500)
        spacing: 10

        Rectangle {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: 4
            width: 56
            height: 56
            radius: 28
            color: Theme.control
            IconImage {
                anchors.centerIn: parent
                name: "search"
                size: 26
                currentColor: Theme.textTertiary
            }
        }
        Text {
            objectName: "emptyResultsTitle"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: empty.bindings.emptyResultsTitle
            color: Theme.text
            font.pixelSize: 17
            font.weight: Font.DemiBold
            elide: Text.ElideMiddle
        }
        Text {
            objectName: "emptyResultsHint"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            lineHeight: 1.15
            text: empty.bindings.emptyResultsHint
            color: Theme.textSecondary
            font.pixelSize: 13
        }
        // The query again over every icon, when a narrower tab found nothing.
        Rectangle {
            id: searchAll
            objectName: "searchAllButton"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 4
            visible: empty.bindings.offersSearchAll
            implicitWidth: searchAllRow.implicitWidth + 24
            implicitHeight: 30
            radius: Theme.smallRadius
            color: searchAllArea.containsMouse ? Theme.hover : Theme.control
            Accessible.role: Accessible.Button
            Accessible.name: searchAllText.text
            Accessible.description: empty.bindings.searchAllKeys
            Accessible.onPressAction: empty.model.searchAllIcons()
            Row {
                id: searchAllRow
                anchors.centerIn: parent
                spacing: 8
                Text {
                    id: searchAllText
                    anchors.verticalCenter: parent.verticalCenter
                    text: "Search all icons"
                    color: Theme.text
                    font.pixelSize: 13
                }
                KeyCap {
                    anchors.verticalCenter: parent.verticalCenter
                    text: empty.bindings.searchAllKeys
                }
            }
            MouseArea {
                id: searchAllArea
                anchors.fill: parent
                hoverEnabled: true
                onClicked: empty.model.searchAllIcons()
            }
        }
        Text {
            objectName: "didYouMeanLine"
            Layout.fillWidth: true
            Layout.topMargin: 8
            visible: empty.bindings.didYouMeanNames.length > 0
            horizontalAlignment: Text.AlignHCenter
            text: "Did you mean"
            color: Theme.text
            font.pixelSize: 13
        }
        SuggestionRow {
            objectName: "didYouMeanIcons"
            Layout.alignment: Qt.AlignHCenter
            model: empty.model
            filled: empty.bindings.filled
            names: empty.bindings.didYouMeanNames
        }
        Text {
            objectName: "nearMatchLine"
            Layout.fillWidth: true
            Layout.topMargin: 8
            visible: text.length > 0
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: empty.bindings.nearMatchLine
            color: Theme.text
            font.pixelSize: 13
        }
        SuggestionRow {
            objectName: "nearMatchIcons"
            Layout.alignment: Qt.AlignHCenter
            model: empty.model
            filled: empty.bindings.filled
            names: empty.bindings.nearMatchNames
        }
        Row {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 10
            spacing: 4
            Accessible.role: Accessible.Link
            Accessible.name: linkText.text
            Text {
                id: linkText
                objectName: "requestIconLink"
                text: "Request an icon on GitHub"
                color: Theme.accent
                font.pixelSize: 13
                font.underline: linkArea.containsMouse
                MouseArea {
                    id: linkArea
                    anchors.fill: parent
                    anchors.rightMargin: -18
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: Qt.openUrlExternally(empty.bindings.requestIconUrl)
                }
            }
            IconImage {
                anchors.verticalCenter: linkText.verticalCenter
                name: "arrow-up-right"
                size: 14
                currentColor: Theme.accent
            }
        }
    }
}
