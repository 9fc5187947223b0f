import QtQuick
import QtQuick.Controls

// A check box a screen reader can toggle (see AccessibleButton).
CheckBox {
    id: box
    function toggleForAssistiveTechnology() {
        if (!enabled)
            return;
        toggle();
        toggled();
    }
    Accessible.onPressAction: box.toggleForAssistiveTechnology()
    Accessible.onToggleAction: box.toggleForAssistiveTechnology()
}
