pragma ComponentBehavior: Bound

import QtQuick
import Pictray.Kit

// A field that shows a shortcut as key caps and, once clicked, listens for a
// new one. While it listens every key is its own, so none reaches another
// control; the owner decides what each key means.
Rectangle {
    id: recorder
    property var keyCaps: []
    property bool recording: false
    // Spoken for the whole control ("Shortcut: Control Alt I. Click to record a new one.").
    property string accessibleName
    // Which shortcut this is ("Open picker"), where a window has several.
    property string accessibleDescription
    property bool prominent: false
    signal toggled
    signal cleared
    signal keyPressed(int key, int modifiers, int nativeScanCode)

    implicitWidth: Math.max(prominent ? 220 : 130, content.implicitWidth + 56)
    implicitHeight: prominent ? 40 : 28
    radius: Theme.smallRadius
    color: recording ? Theme.accentSoft : Theme.field
    border.width: recording || activeFocus ? 2 : 1
    border.color: recording || activeFocus ? Theme.accent : Theme.fieldBorder
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.ignored: !visible
    Accessible.name: recording ? "Press shortcut…" : accessibleName
    Accessible.description: accessibleDescription
    Accessible.onPressAction: recorder.toggled()

    Keys.onPressed: event => {
        if (recorder.recording) {
            event.accepted = true;
            recorder.keyPressed(event.key, event.modifiers, event.nativeScanCode);
            return;
        }
        if (event.key === Qt.Key_Space || event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
            recorder.toggled();
            event.accepted = true;
        }
    }
    // Losing the keyboard ends recording, so the hot keys come back.
    onActiveFocusChanged: if (!activeFocus && recording) toggled()

    MouseArea {
        anchors.fill: parent
        onClicked: {
            recorder.forceActiveFocus();
            recorder.toggled();
        }
    }

    Row {
        id: content
        anchors.centerIn: parent
        // Clear of the clear button.
        anchors.horizontalCenterOffset: clearButton.visible ? -10 : 0
        spacing: 4
        Text {
            objectName: "recorderPrompt"
            visible: recorder.recording || recorder.keyCaps.length === 0
            text: recorder.recording ? "Press shortcut…" : "Record Shortcut"
            color: recorder.recording ? Theme.accent : Theme.textSecondary
            font.pixelSize: Theme.fontSize
        }
        Repeater {
            model: recorder.recording ? [] : recorder.keyCaps
            KeyCap {
                required property string modelData
                text: modelData
            }
        }
    }

    IconButton {
        id: clearButton
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 20
        implicitHeight: 20
        visible: !recorder.recording && recorder.keyCaps.length > 0
        iconName: "x"
        iconSize: 12
        accessibleName: "Clear shortcut"
        toolTip: "Clear shortcut"
        onClicked: recorder.cleared()
    }
}
