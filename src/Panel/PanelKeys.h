#pragma once

#include "Base/ExportFormat.h"

#include <QPoint>
#include <optional>

class QKeyEvent;

// What a key press in the picker panel asks for. The panel's own keys are
// decided here, apart from their effects, so the table reads in one place.
struct PanelKeyAction {
    enum class Kind {
        none, // not the panel's: the event goes on to the focused view
        copy, // in `format`, or the model's format when none
        showFormatMenu,
        escape,
        move, // by `step` cells across and rows down
        toggleFavorite,
        openSettings,
        focusSearch,
        close,
        quit,
        toggleStyle,
    };
    Kind kind = Kind::none;
    std::optional<ExportFormat> format;
    QPoint step;

    friend bool operator==(const PanelKeyAction&, const PanelKeyAction&) = default;
};

namespace PanelKeys {

// Letters and digits count by the character the key types without
// modifiers, so they work on any layout; arrows, Return, Enter, Escape and
// the page keys by their key. "Exactly Ctrl" ignores keypad and group
// modifiers; Alt stands where a Mac has Control.
PanelKeyAction actionFor(const QKeyEvent& event);

} // namespace PanelKeys
