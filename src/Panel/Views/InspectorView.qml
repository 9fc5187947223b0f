pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Picker

// The selected icon: its name and favourite toggle, a preview as it will be
// exported, the colour, size, stroke and format, and the copy actions.
Rectangle {
    id: inspector
    required property PickerModel model
    required property PickerBindings bindings
    required property PickerController controller

    color: Theme.card

    // The "Copy as" menu opens under the copy button, given in the window's
    // coordinates as the controller places it.
    Connections {
        target: inspector.controller
        function onFormatMenuRequested() {
            inspector.controller.openFormatMenu(
                copyButton.mapToItem(null, 0, 0, copyButton.width, copyButton.height))
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 14

        // Name and favourite toggle.
        RowLayout {
            Layout.fillWidth: true
            spacing: 8
            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2
                Text {
                    id: nameText
                    objectName: "inspectorName"
                    Layout.fillWidth: true
                    text: inspector.model.currentName
                    color: Theme.text
                    font.pixelSize: 15
                    font.weight: Font.DemiBold
                    // Long names differ at their ends ("…-horizontal-x").
                    elide: Text.ElideMiddle
                    HoverHandler {
                        id: nameHover
                    }
                    HoverTip {
                        visible: nameHover.hovered && nameText.truncated
                        text: nameText.text
                    }
                }
                Text {
                    objectName: "inspectorTags"
                    Layout.fillWidth: true
                    text: inspector.bindings.currentTagLine
                    color: Theme.textSecondary
                    font.pixelSize: 11
                    elide: Text.ElideRight
                }
            }
            IconButton {
                objectName: "favoriteToggle"
                Layout.alignment: Qt.AlignTop
                iconName: "heart"
                iconSize: 18
                iconFilled: inspector.bindings.currentIsFavorite
                iconColor: inspector.bindings.currentIsFavorite ? Theme.favorite : Theme.textSecondary
                enabled: inspector.model.currentName.length > 0
                accessibleName: inspector.bindings.favoriteHelp
                toolTip: inspector.bindings.favoriteHelp
                onClicked: inspector.bindings.toggleFavorite()
            }
        }

        // Output preview.
        // It takes the height the column leaves over.
        FormRow {
            objectName: "previewRow"
            Layout.fillWidth: true
            Layout.fillHeight: true
            title: "Output preview"
            Rectangle {
                id: preview
                objectName: "outputPreview"
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.minimumHeight: 56
                radius: Theme.radius
                color: Theme.body
                border.color: Theme.outline
                border.width: 1
                Accessible.role: Accessible.Graphic
                Accessible.name: "Preview, drag to another app"
                // A colour lost on the body shows on mid-grey squares.
                Canvas {
                    objectName: "previewCheckerboard"
                    anchors.fill: parent
                    anchors.margins: 6
                    visible: !CssColor.legibleOn(inspector.model.color, Theme.body)
                    onPaint: {
                        const ctx = getContext("2d")
                        const square = 8
                        for (let y = 0; y < height; y += square) {
                            for (let x = 0; x < width; x += square) {
                                ctx.fillStyle = (x + y) / square % 2 === 0 ? "#BDBDC2" : "#8E8E94"
                                ctx.fillRect(x, y, square, square)
                            }
                        }
                    }
                    onWidthChanged: requestPaint()
                    onHeightChanged: requestPaint()
                }
                IconImage {
                    anchors.centerIn: parent
                    width: size
                    height: size
                    name: inspector.model.currentName
                    filled: inspector.bindings.filled
                    color: inspector.model.color
                    size: Math.min(inspector.model.size, preview.height - 24)
                    stroke: inspector.model.stroke
                }
                DragArea {
                    id: previewArea
                    anchors.fill: parent
                    cursorShape: Qt.OpenHandCursor
                    controller: inspector.controller
                    iconName: inspector.model.currentName
                }
                HoverTip {
                    visible: previewArea.containsMouse && !previewArea.pressed
                    text: "Preview, drag to another app"
                }
            }
        }

        // Colour.
        FormRow {
            objectName: "colorRow"
            Layout.fillWidth: true
            title: "Color"
            Flow {
                id: swatches
                objectName: "swatches"
                Layout.fillWidth: true
                spacing: 2
                // One Tab stop; the arrows choose the neighbouring colour.
                activeFocusOnTab: true
                Keys.onLeftPressed: step(-1)
                Keys.onRightPressed: step(1)
                function step(by) {
                    const values = inspector.bindings.swatchValues
                    let at = -1
                    for (let i = 0; i < values.length; ++i) {
                        if (values[i] === inspector.model.color)
                            at = i
                    }
                    inspector.model.color = values[Math.max(0, Math.min(values.length - 1, at + by))]
                }
                Repeater {
                    model: inspector.bindings.swatchValues
                    Swatch {
                        required property int index
                        required property string modelData
                        value: modelData
                        label: inspector.bindings.swatchLabels[index] || ""
                        selected: modelData === inspector.model.color
                        focusShown: selected && swatches.activeFocus
                        onClicked: inspector.model.color = modelData
                    }
                }
                // Any other colour, typed as hexadecimal; a colour that does
                // not read beeps and the field shows the current one again.
                Rectangle {
                    width: 84
                    height: 24
                    radius: Theme.smallRadius
                    color: Theme.field
                    border.width: 1
                    border.color: hexField.activeFocus ? Theme.accent : Theme.fieldBorder
                    TextInput {
                        id: hexField
                        objectName: "hexField"
                        readonly property string shown: inspector.model.color.charAt(0) === "#"
                                                        ? inspector.model.color : ""
                        anchors.fill: parent
                        anchors.leftMargin: 8
                        anchors.rightMargin: 8
                        verticalAlignment: TextInput.AlignVCenter
                        font.pixelSize: 12
                        font.family: "monospace"
                        color: Theme.text
                        selectionColor: Theme.accentFill
                        selectedTextColor: Theme.accentText
                        clip: true
                        maximumLength: 12
                        text: shown
                        activeFocusOnTab: true
                        Accessible.role: Accessible.EditableText
                        Accessible.name: "Hex color"
                        onShownChanged: text = shown
                        onActiveFocusChanged: activeFocus ? selectAll() : (text = shown)
                        onAccepted: {
                            if (!inspector.controller.setColorText(text))
                                text = shown
                            selectAll()
                        }
                        Text {
                            anchors.verticalCenter: parent.verticalCenter
                            visible: hexField.text.length === 0 && !hexField.activeFocus
                            text: "#hex"
                            color: Theme.textTertiary
                            font: hexField.font
                        }
                    }
                }
            }
        }

        // Size.
        FormRow {
            objectName: "sizeRow"
            Layout.fillWidth: true
            title: "Size"
            trailing: inspector.bindings.sizeLabel
            // The sizes icons are mostly used at, one click away.
            accessory: Row {
                objectName: "sizePresets"
                spacing: 2
                Repeater {
                    model: [16, 20, 24, 32, 48]
                    Rectangle {
                        id: preset
                        required property int modelData
                        readonly property bool current: inspector.model.size === modelData
                        objectName: "sizePreset" + modelData
                        width: 26
                        height: 18
                        radius: 4
                        color: current ? Theme.accentFill
                                       : (presetArea.containsMouse ? Theme.hover : Theme.control)
                        Accessible.role: Accessible.Button
                        Accessible.name: modelData + " pixels"
                        Accessible.onPressAction: inspector.model.size = modelData
                        Text {
                            anchors.centerIn: parent
                            text: preset.modelData
                            color: preset.current ? Theme.accentText : Theme.textSecondary
                            font.pixelSize: 11
                        }
                        MouseArea {
                            id: presetArea
                            anchors.fill: parent
                            hoverEnabled: true
                            onClicked: inspector.model.size = preset.modelData
                        }
                    }
                }
            }
            KitSlider {
                objectName: "sizeSlider"
                Layout.fillWidth: true
                from: 12
                to: 128
                stepSize: 1
                value: inspector.model.size
                onMoved: value => inspector.model.size = Math.round(value)
                Accessible.name: "Size"
            }
        }

        // Stroke.
        FormRow {
            objectName: "strokeRow"
            Layout.fillWidth: true
            title: "Stroke width"
            trailing: inspector.bindings.strokeLabel
            enabled: inspector.model.strokeEnabled
            opacity: enabled ? 1 : 0.45
            KitSlider {
                objectName: "strokeSlider"
                Layout.fillWidth: true
                from: 0.5
                to: 3
                stepSize: 0.25
                value: inspector.model.stroke
                onMoved: value => inspector.model.stroke = value
                Accessible.name: "Stroke width"
            }
        }

        // Format.
        FormRow {
            objectName: "formatRow"
            Layout.fillWidth: true
            title: "Copy as"
            FormatChoice {
                Layout.fillWidth: true
                bindings: inspector.bindings
            }
        }

        // Actions.
        RowLayout {
            id: actions
            Layout.fillWidth: true
            spacing: 8

            Rectangle {
                id: dragHandle
                objectName: "dragHandle"
                Layout.preferredWidth: 40
                Layout.preferredHeight: 36
                radius: Theme.radius
                color: handleArea.containsMouse ? Theme.hover : Theme.control
                Accessible.role: Accessible.Button
                Accessible.name: "Drag icon into another app"
                IconImage {
                    anchors.centerIn: parent
                    name: "drag-drop"
                    size: 18
                    currentColor: Theme.textSecondary
                }
                DragArea {
                    id: handleArea
                    anchors.fill: parent
                    cursorShape: Qt.OpenHandCursor
                    controller: inspector.controller
                    iconName: inspector.model.currentName
                }
                HoverTip {
                    visible: handleArea.containsMouse && !handleArea.pressed
                    text: inspector.bindings.dragHint
                }
            }

            Rectangle {
                id: copyButton
                objectName: "copyButton"
                Layout.fillWidth: true
                Layout.preferredHeight: 36
                radius: Theme.radius
                color: copyArea.pressed ? Qt.darker(Theme.accentFill, 1.15)
                                        : (copyArea.containsMouse ? Qt.lighter(Theme.accentFill, 1.08) : Theme.accentFill)
                enabled: inspector.model.currentName.length > 0
                opacity: enabled ? 1 : 0.5
                Accessible.role: Accessible.Button
                Accessible.name: copyText.text
                Accessible.onPressAction: inspector.model.copy()
                activeFocusOnTab: enabled
                Keys.onSpacePressed: inspector.model.copy()
                FocusRing {
                    itemRadius: copyButton.radius
                }
                Text {
                    id: copyText
                    objectName: "copyButtonText"
                    anchors.fill: parent
                    anchors.leftMargin: 8
                    anchors.rightMargin: 8
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    text: inspector.bindings.copyButtonTitle
                    color: Theme.accentText
                    font.pixelSize: 12
                    font.weight: Font.DemiBold
                    elide: Text.ElideRight
                }
                MouseArea {
                    id: copyArea
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: inspector.model.copy()
                }
            }
        }
    }
}
