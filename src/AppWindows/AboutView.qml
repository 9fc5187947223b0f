import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Windows

// Who made Pictray, which versions run, and the icon set's credits.
Item {
    id: view
    required property AboutInfo about
    implicitWidth: 380
    implicitHeight: content.implicitHeight + 48
    WindowColors { id: colors }

    ColumnLayout {
        id: content
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: 28
        width: Math.min(parent.width - 48, 340)
        spacing: 6

        Rectangle {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: 8
            width: 72
            height: 72
            radius: 16
            gradient: Gradient {
                GradientStop { position: 0; color: "#3d8bfd" }
                GradientStop { position: 1; color: "#1a5bb0" }
            }
            Image {
                anchors.centerIn: parent
                source: "image://glyph/icons/ffffff"
                sourceSize.width: 44
                sourceSize.height: 44
            }
        }
        Label {
            Layout.alignment: Qt.AlignHCenter
            text: "Pictray"
            font.pixelSize: 22
            font.weight: Font.Bold
            color: colors.text
        }
        Label {
            Layout.alignment: Qt.AlignHCenter
            text: "Version " + view.about.version + " (" + view.about.build + ")"
            color: colors.secondaryText
        }
        Label {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 6
            text: view.about.tagline
            color: colors.text
        }
        Label {
            Layout.alignment: Qt.AlignHCenter
            text: "Tabler Icons " + view.about.catalogueVersion
            color: colors.secondaryText
        }
        Label {
            Layout.fillWidth: true
            Layout.topMargin: 10
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            textFormat: Text.StyledText
            linkColor: colors.link
            color: colors.secondaryText
            text: "Icons from <a href=\"" + view.about.tablerURL + "\">Tabler Icons</a>"
                  + " by Paweł Kuna and contributors, under the MIT License."
            onLinkActivated: link => Qt.openUrlExternally(link)
            HoverHandler { cursorShape: parent.hoveredLink ? Qt.PointingHandCursor : Qt.ArrowCursor }
        }
        AccessibleButton {
            Layout.alignment: Qt.AlignHCenter
            text: "MIT License"
            flat: true
            onClicked: licence.open()
        }
        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: 12
            AccessibleButton {
                text: "Website"
                onClicked: Qt.openUrlExternally(view.about.websiteURL)
            }
            AccessibleButton {
                text: "Support"
                onClicked: Qt.openUrlExternally(view.about.supportURL)
            }
        }
        Label {
            Layout.fillWidth: true
            Layout.topMargin: 14
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            font.pixelSize: 11
            color: colors.secondaryText
            text: "Made by the Pictray developers. Pictray is not affiliated with Tabler."
        }
    }

    Popup {
        id: licence
        objectName: "licencePopup"
        parent: Overlay.overlay
        anchors.centerIn: parent
        width: Math.min(view.width - 32, 440)
        height: Math.min(view.height - 32, 420)
        modal: true
        padding: 0
        background: Rectangle {
            color: colors.card
            radius: 10
            border.color: colors.separator
        }
        ColumnLayout {
            anchors.fill: parent
            anchors.margins: 14
            spacing: 10
            ScrollView {
                Layout.fillWidth: true
                Layout.fillHeight: true
                TextArea {
                    readOnly: true
                    wrapMode: Text.WordWrap
                    text: view.about.licenceText
                    color: colors.text
                    font.pixelSize: 12
                    background: null
                }
            }
            AccessibleButton {
                Layout.alignment: Qt.AlignRight
                text: "Close"
                onClicked: licence.close()
            }
        }
    }
}
