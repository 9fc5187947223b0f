import QtQuick
import QtQuick.Layouts
import Pictray.Kit
import Pictray.Picker

// The picker's content: search row, chips, the grid beside the inspector
// (or the empty results), and the footer of key hints.
Item {
    id: view
    required property PickerModel model
    required property PickerBindings bindings
    required property PickerController controller

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        SearchRow {
            Layout.fillWidth: true
            model: view.model
            bindings: view.bindings
            controller: view.controller
        }

        ChipsRow {
            Layout.fillWidth: true
            visible: view.model.prefs.showCategoryBar
            model: view.model
            bindings: view.bindings
        }
        // Without the chips, a strip keeps the search row off the divider.
        Item {
            Layout.fillWidth: true
            Layout.preferredHeight: 6
            visible: !view.model.prefs.showCategoryBar
        }

        Divider { Layout.fillWidth: true }

        EmptyResultsView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: view.bindings.showsEmptyResults
            model: view.model
            bindings: view.bindings
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !view.bindings.showsEmptyResults
            spacing: 0

            IconGrid {
                Layout.fillWidth: true
                Layout.fillHeight: true
                model: view.model
                bindings: view.bindings
                controller: view.controller
            }
            Divider {
                Layout.fillHeight: true
                vertical: true
            }
            InspectorView {
                Layout.preferredWidth: 300
                Layout.fillHeight: true
                model: view.model
                bindings: view.bindings
                controller: view.controller
            }
        }

        Divider { Layout.fillWidth: true }

        FooterView {
            Layout.fillWidth: true
            model: view.model
            bindings: view.bindings
        }
    }
}
