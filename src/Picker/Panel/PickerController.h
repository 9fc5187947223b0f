#pragma once

#include "Picker/PickerTab.h"

#include <QObject>
#include <QRect>
#include <functional>
#include <optional>

class CopyService;
class Paster;
class PopoverState;
class PickerModel;
class Preferences;
class QQuickWindow;
class UserLibrary;

// Owns the floating picker panel: places it, opens and closes it, turns key
// presses into actions on the model, shows the "Copy as" menu and applies the
// after-copy setting. One per application; main thread only.
class PickerController : public QObject {
    Q_OBJECT

public:
    PickerController(PickerModel& model, Preferences& prefs, UserLibrary& user,
                     CopyService& copyService, Paster& paster, QObject* parent = nullptr);
    ~PickerController() override;

    // The tray icon's frame in global Qt coordinates; an empty rect when the
    // tray does not report it.
    void setTrayIconGeometry(std::function<QRect()> provider);

    // Opens (or re-places) the panel, on `tab` when given.
    void show(std::optional<PickerTab> tab = std::nullopt);
    // Orders the panel out; it is kept for the next opening.
    void hide();
    // Hides a visible panel, otherwise shows it on no particular tab.
    void toggle();
    bool isVisible() const;
    // Null until the panel is first shown.
    QQuickWindow* panel() const;
    PopoverState& popoverState();

    // Called from the views.
    // Hides the panel and asks for the settings window on its first tab.
    Q_INVOKABLE void openSettings();
    // Drags the icon of that name out of the panel as the drag format setting says.
    Q_INVOKABLE void startDrag(const QString& iconName);

signals:
    // The panel asks for the settings window on a tab (0 General, 1 Copy).
    void settingsRequested(int tab);
    void quitRequested();
};
