import QtQuick
import QtQuick.Controls

// A switch a screen reader can toggle (see AccessibleButton).
Switch {
    id: control
    function toggleForAssistiveTechnology() {
        if (!enabled)
            return;
        toggle();
        toggled();
    }
    Accessible.onPressAction: control.toggleForAssistiveTechnology()
    Accessible.onToggleAction: control.toggleForAssistiveTechnology()
}
