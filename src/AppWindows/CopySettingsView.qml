import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Windows

// The Copy tab: what a copy produces when nothing else is chosen.
ScrollView {
    id: view
    required property SettingsForm form
    readonly property Preferences prefs: form.prefs
    readonly property ChoiceSettings choices: form.choices
    contentWidth: availableWidth

    ColumnLayout {
        width: view.availableWidth - 40
        x: 20
        spacing: 16

        Item { implicitHeight: 4 }

        SettingsSection {
            title: "Defaults"
            ChoiceRow {
                objectName: "defaultFormat"
                label: "Default format"
                choices: view.choices.defaultFormatLabels
                currentIndex: view.choices.defaultFormat
                onActivated: index => view.choices.defaultFormat = index
            }
            SettingRow {
                label: "Default style"
                namesControl: true
                SegmentedControl {
                    objectName: "defaultStyle"
                    segments: view.choices.defaultStyleLabels
                    currentIndex: view.choices.defaultStyle
                    Accessible.name: "Default style"
                    onActivated: index => view.choices.defaultStyle = index
                }
            }
            SettingRow {
                label: "Default color"
                namesControl: true
                TextField {
                    id: colorField
                    objectName: "defaultColor"
                    width: 200
                    text: view.prefs.defaultColor
                    selectByMouse: true
                    Accessible.name: "Default color"
                    onEditingFinished: {
                        view.form.commitColorText(text);
                        text = Qt.binding(() => view.prefs.defaultColor);
                    }
                }
            }
            NumberRow {
                objectName: "defaultSize"
                label: "Default size"
                // Pixels: the sizes icons are drawn at, well inside the setting's range.
                from: 8
                to: 512
                value: view.form.defaultSize
                onModified: value => view.form.defaultSize = value
            }
            SettingRow {
                label: "Default stroke"
                namesControl: true
                Row {
                    spacing: 8
                    KitSlider {
                        objectName: "defaultStroke"
                        width: 150
                        anchors.verticalCenter: parent.verticalCenter
                        // Tabler draws at 2; thinner and heavier variants stay legible.
                        from: 0.5
                        to: 4
                        stepSize: 0.25
                        value: view.prefs.defaultStroke
                        Accessible.name: "Default stroke"
                        onMoved: value => view.prefs.defaultStroke = value
                    }
                    Text {
                        anchors.verticalCenter: parent.verticalCenter
                        width: 36
                        text: view.prefs.defaultStroke.toFixed(2)
                        color: Theme.textSecondary
                        font.pixelSize: Theme.fontSize
                    }
                }
            }
        }

        SettingsSection {
            title: "Code output"
            SwitchRow {
                objectName: "optimizeSVG"
                label: "Optimize SVG"
                caption: "One line, merged paths, no empty bounding-box path"
                checked: view.prefs.optimizeSVG
                onToggled: checked => view.prefs.optimizeSVG = checked
            }
            SwitchRow {
                objectName: "includeSize"
                label: "Include width and height"
                caption: "Off: icon scales to its container"
                checked: view.prefs.includeSize
                onToggled: checked => view.prefs.includeSize = checked
            }
            SwitchRow {
                objectName: "tailwindCurrentColor"
                label: "Use currentColor for Tailwind"
                caption: "Color comes from text-* classes"
                checked: view.prefs.tailwindCurrentColor
                onToggled: checked => view.prefs.tailwindCurrentColor = checked
            }
            SwitchRow {
                objectName: "ariaHidden"
                label: "Add aria-hidden=\"true\""
                caption: "For decorative icons next to text"
                checked: view.prefs.ariaHidden
                onToggled: checked => view.prefs.ariaHidden = checked
            }
            TextRow {
                objectName: "classAttribute"
                label: "Class attribute"
                caption: "{name} becomes the icon name; leave empty for none"
                text: view.prefs.classAttribute
                onEdited: text => view.prefs.classAttribute = text
            }
        }

        SettingsSection {
            title: "Frameworks"
            TextRow {
                objectName: "reactComponentName"
                label: "React component name"
                caption: "{Name} becomes the icon name in PascalCase"
                text: view.prefs.reactComponentName
                onEdited: text => view.prefs.reactComponentName = text
            }
            SettingRow {
                label: "React language"
                namesControl: true
                SegmentedControl {
                    objectName: "reactLanguage"
                    segments: view.choices.reactLanguageLabels
                    currentIndex: view.choices.reactLanguage
                    Accessible.name: "React language"
                    onActivated: index => view.choices.reactLanguage = index
                }
            }
            ChoiceRow {
                objectName: "vueStyle"
                label: "Vue style"
                controlWidth: 270
                choices: view.choices.vueStyleLabels
                currentIndex: view.choices.vueStyle
                onActivated: index => view.choices.vueStyle = index
            }
            TextRow {
                objectName: "bladePrefix"
                label: "Blade component prefix"
                caption: "Matches the blade-tabler-icons package"
                text: view.prefs.bladePrefix
                onEdited: text => view.prefs.bladePrefix = text
            }
        }

        SettingsSection {
            title: "PNG"
            SettingRow {
                label: "Copy PNG at"
                Row {
                    spacing: 4
                    AccessibleCheckBox {
                        objectName: "png1x"
                        text: "1×"
                        checked: view.prefs.png1x
                        onToggled: {
                            view.prefs.png1x = checked;
                            checked = Qt.binding(() => view.prefs.png1x);
                        }
                    }
                    AccessibleCheckBox {
                        objectName: "png2x"
                        text: "2×"
                        checked: view.prefs.png2x
                        onToggled: {
                            view.prefs.png2x = checked;
                            checked = Qt.binding(() => view.prefs.png2x);
                        }
                    }
                    AccessibleCheckBox {
                        objectName: "png3x"
                        text: "3×"
                        checked: view.prefs.png3x
                        onToggled: {
                            view.prefs.png3x = checked;
                            checked = Qt.binding(() => view.prefs.png3x);
                        }
                    }
                }
            }
            SettingRow {
                label: "Background"
                namesControl: true
                SegmentedControl {
                    objectName: "pngBackground"
                    segments: view.choices.pngBackgroundLabels
                    currentIndex: view.choices.pngBackground
                    Accessible.name: "Background"
                    onActivated: index => view.choices.pngBackground = index
                }
            }
            NumberRow {
                objectName: "pngPadding"
                label: "Padding"
                from: 0
                to: 256
                value: view.form.pngPadding
                onModified: value => view.form.pngPadding = value
            }
        }

        SettingsSection {
            title: "Drag and drop"
            ChoiceRow {
                objectName: "dragFormat"
                label: "Dragged icons arrive as"
                caption: view.form.dragFormatCaption
                choices: view.choices.dragFormatLabels
                currentIndex: view.choices.dragFormat
                onActivated: index => view.choices.dragFormat = index
            }
        }

        Item { implicitHeight: 8 }
    }
}
