#pragma once

#include <QPointer>
#include <QQuickWindow>
#include <QRegion>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <optional>

class QQmlEngine;
class QQuickItem;

// The picker's window: frameless, above other windows, out of the taskbar,
// transparent around the body so the root QML draws the popover's arrow. It
// holds its own QML engine and one root item, made at construction.
class PanelWindow : public QQuickWindow {
    Q_OBJECT

public:
    using EngineSetup = std::function<void(QQmlEngine&)>;

    // The root QML gets `properties` as its required properties; `setup`
    // prepares the engine (QML modules, image sources) before the root is
    // loaded.
    PanelWindow(const QUrl& root, const QVariantMap& properties, const EngineSetup& setup = {});
    ~PanelWindow() override;

    // Null when the QML could not be loaded (its errors are logged).
    QQuickItem* rootItem() const;

    // Whether a popup of the views (the inspector's "Copy as" list, an item
    // with a true `keepsKeys`) or something in it has the keyboard focus:
    // its keys are then its own, not the panel's.
    bool popupHasKeys() const;
    // Whether a control other than the search field has the keyboard focus
    // (Tab took it there): the arrow keys are then the control's.
    bool controlHasKeys() const;
    // Whether a text field other than the search field is being edited: it
    // takes Return, the arrows and letters for itself.
    bool editingText() const;
    // Whether no item has the keyboard focus: the window has the keyboard
    // before Qt has handed the focus to an item (a loaded machine, keys
    // typed right after the shortcut), and its keys would be dropped.
    bool keysGoNowhere() const;
    // Delivers `event` to the search field directly; false without one.
    bool sendToSearchField(const QKeyEvent& event);

    // Draws one frame of the hidden window, at one pixel, without showing
    // it: its items and their glyphs are made, and the software renderer,
    // which sizes the image it draws into to the window, gives back the
    // window-sized one it keeps between frames (2 MB, on X11 shared with the
    // server). The next showing sizes the window and draws it whole.
    void drawUnseen();

    // Limits the window to the body and the arrow triangle: without a
    // compositor the transparent parts would show black.
    void shape(std::optional<double> arrowX, bool arrowDown);

    // The rounded body plus the arrow, for a window of `size`.
    static QRegion shapeRegion(QSize size, std::optional<double> arrowX, bool arrowDown);

private:
    QQmlEngine* m_engine;
    QPointer<QQuickItem> m_root;
};
