import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Windows

// The General tab: starting up, the global shortcuts, the picker and the library.
ScrollView {
    id: view
    required property SettingsForm form
    readonly property Preferences prefs: form.prefs
    readonly property ChoiceSettings choices: form.choices
    readonly property LibrarySettings library: form.library
    contentWidth: availableWidth

    ColumnLayout {
        width: view.availableWidth - 40
        x: 20
        spacing: 16

        Item { implicitHeight: 4 }

        SettingsSection {
            title: "Startup"
            SwitchRow {
                objectName: "launchAtLogin"
                label: "Launch at login"
                enabled: view.form.login.available
                checked: view.form.login.enabled
                onToggled: checked => view.form.login.enabled = checked
            }
            SwitchRow {
                objectName: "automaticallyChecksForUpdates"
                label: "Automatically check for updates"
                checked: view.prefs.automaticallyChecksForUpdates
                onToggled: checked => view.prefs.automaticallyChecksForUpdates = checked
            }
            SwitchRow {
                objectName: "showMenuBarIcon"
                label: view.form.showIconLabel
                caption: view.form.showIconCaption
                checked: view.prefs.showMenuBarIcon
                onToggled: checked => view.prefs.showMenuBarIcon = checked
            }
        }

        SettingsSection {
            title: "Global shortcut"
            ShortcutRow {
                objectName: "pickerHotKey"
                label: "Open picker"
                setting: view.form.pickerShortcut
            }
            ShortcutRow {
                objectName: "copyLastHotKey"
                label: "Copy last icon again"
                setting: view.form.copyLastShortcut
            }
        }

        SettingsSection {
            title: "Picker"
            ChoiceRow {
                objectName: "pickerPosition"
                label: "Picker position"
                choices: view.choices.pickerPositionLabels
                currentIndex: view.choices.pickerPosition
                onActivated: index => view.choices.pickerPosition = index
            }
            ChoiceRow {
                objectName: "afterCopy"
                label: "After copying"
                choices: view.choices.afterCopyLabels
                currentIndex: view.choices.afterCopy
                onActivated: index => view.choices.afterCopy = index
            }
            RowLayout {
                objectName: "pasteNote"
                Layout.fillWidth: true
                visible: view.form.pasteNote.length > 0
                spacing: 8
                IconImage {
                    Layout.alignment: Qt.AlignTop
                    name: "alert-triangle"
                    size: 16
                    currentColor: Theme.textSecondary
                }
                Text {
                    Layout.fillWidth: true
                    wrapMode: Text.WordWrap
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    text: view.form.pasteNote
                    color: Theme.textSecondary
                    font.pixelSize: Theme.smallFontSize
                }
            }
            SettingRow {
                label: "Appearance"
                namesControl: true
                SegmentedControl {
                    objectName: "appearance"
                    segments: view.choices.appearanceLabels
                    currentIndex: view.choices.appearance
                    Accessible.name: "Appearance"
                    onActivated: index => view.choices.appearance = index
                }
            }
            SwitchRow {
                objectName: "keepLastSearch"
                label: "Keep last search when reopening"
                checked: view.prefs.keepLastSearch
                onToggled: checked => view.prefs.keepLastSearch = checked
            }
            SwitchRow {
                objectName: "showCategoryBar"
                label: "Show category bar"
                caption: "The row of All, Favorites, Recents and category chips under the search field"
                checked: view.prefs.showCategoryBar
                onToggled: checked => view.prefs.showCategoryBar = checked
            }
        }

        SettingsSection {
            title: "Library"
            SettingRow {
                label: view.library.iconSetName
                caption: view.library.iconSetDetail
                AccessibleButton {
                    objectName: "checkForNewIcons"
                    text: "Check for New Icons"
                    enabled: !view.library.checking
                    onClicked: view.library.checkForNewIcons()
                }
            }
            Text {
                objectName: "updaterStatus"
                Layout.fillWidth: true
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Accessible.ignored: !visible
                visible: text.length > 0
                wrapMode: Text.WordWrap
                text: view.library.updaterStatus
                color: Theme.textSecondary
                font.pixelSize: Theme.smallFontSize
            }
            Divider { Layout.fillWidth: true }
            SettingRow {
                label: "Favorites"
                caption: view.library.favoritesText
                Row {
                    spacing: 6
                    AccessibleButton {
                        objectName: "importFavorites"
                        text: "Import…"
                        Accessible.name: "Import favorites"
                        onClicked: view.library.chooseImportFile()
                    }
                    AccessibleButton {
                        objectName: "exportFavorites"
                        text: "Export…"
                        Accessible.name: "Export favorites"
                        onClicked: view.library.chooseExportFile()
                    }
                }
            }
            Divider { Layout.fillWidth: true }
            SettingRow {
                label: "Recents"
                Row {
                    spacing: 8
                    Text {
                        anchors.verticalCenter: parent.verticalCenter
                        text: "Keep last"
                        color: Theme.text
                        font.pixelSize: Theme.fontSize
                    }
                    SpinBox {
                        objectName: "recentsLimit"
                        width: 110
                        // Within the setting's range; more than a few dozen
                        // would not fit the picker's recents row anyway.
                        from: 0
                        to: 100
                        value: view.form.recentsLimit
                        editable: true
                        Accessible.name: "Number of recent icons to keep"
                        onValueModified: {
                            view.form.recentsLimit = value;
                            value = Qt.binding(() => view.form.recentsLimit);
                        }
                    }
                    AccessibleButton {
                        objectName: "clearRecents"
                        text: "Clear"
                        enabled: view.library.hasRecents
                        Accessible.name: "Clear recents"
                        onClicked: view.library.clearRecents()
                    }
                }
            }
            Text {
                objectName: "libraryMessage"
                Layout.fillWidth: true
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Accessible.ignored: !visible
                visible: text.length > 0
                wrapMode: Text.WordWrap
                text: view.library.message
                color: Theme.text
                font.pixelSize: Theme.smallFontSize
            }
        }

        Item { implicitHeight: 8 }
    }
}
