#pragma once

#include "Base/ExportFormat.h"
#include "Base/Rendition.h"

#include <QPoint>
#include <optional>

class KeyboardLayout;
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
        searchAll, // the same query over the whole catalogue
    };
    Kind kind = Kind::none;
    std::optional<ExportFormat> format;
    QPoint step;

    friend bool operator==(const PanelKeyAction&, const PanelKeyAction&) = default;
};

namespace PanelKeys {

// Letters and digits count by the character the key types without
// modifiers, so they work on any layout; digits that a layout types with
// Shift (AZERTY) by their place on the digit row, which the layout tells
// from the event's scan code. Arrows, Return, Enter, Escape and the page keys
// count by their key. "Exactly Ctrl" ignores keypad and group modifiers.
PanelKeyAction actionFor(const QKeyEvent& event, Rendition rendition, const KeyboardLayout* layout);

// Text typed into a field: a printable character other than the space,
// with neither Ctrl, Alt nor Meta held.
bool isTyping(const QKeyEvent& event);

// The second shortcut modifier, drawn "⌃": Control on a Mac, Alt elsewhere
// (Qt calls the Mac's Command key Control).
Qt::KeyboardModifier secondaryModifier(Rendition rendition);

} // namespace PanelKeys
