#pragma once

#include "Picker/PickerTab.h"
#include "TrayMenu.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

class Icon;
class IconLibrary;
class KeyboardLayout;
class Preferences;
class UserLibrary;

// The tray icon and its menu. A plain click opens or closes the picker; a
// right click (or a Ctrl-click) closes the picker and shows the menu, which
// is rebuilt every time it opens. The icon shows while showMenuBarIcon is on
// and a tray is there; without a tray the program keeps running and the icon
// appears once a tray does.
class StatusItemController : public QObject {
    Q_OBJECT

public:
    // What the controller asks of the rest of the program.
    struct Actions {
        std::function<void(std::optional<PickerTab>)> showPicker;
        std::function<void()> togglePicker;
        std::function<void()> hidePicker;
        std::function<void()> copyLast;
        std::function<void(const Icon&)> copyIcon; // with the user's defaults
        std::function<void()> openSettings;
        std::function<void()> checkUpdates;
        std::function<void()> openAbout;
        std::function<void()> quit;
    };

    // Poll for a tray host this often, first quickly, then now and then.
    static constexpr int fastTrayPollMs = 1000;
    static constexpr int fastTrayPollCount = 120;
    static constexpr int slowTrayPollMs = 15000;

    StatusItemController(Preferences& prefs, UserLibrary& user, const IconLibrary& library,
                         Actions actions, QObject* parent = nullptr);
    ~StatusItemController() override;

    // Shows the tray icon as the setting says, making it once a tray is there.
    void setup();
    // Follows showMenuBarIcon and whether a tray is there; also to be called
    // when a tray host appears.
    void updateVisibility();
    // How to tell whether a tray is there; by default, ask Qt.
    void setTrayAvailable(std::function<bool()> available);
    bool isShown() const;
    // The colour the tray icon is drawn in, asked whenever the icon shows.
    void setTrayForeground(std::function<QColor()> foreground)
    {
        m_foreground = std::move(foreground);
    }
    // "Pictray — " and the picker's shortcut, as the tray shows on hover.
    QString toolTip() const;

    // The icon's frame on the screen; empty when hidden or the tray does not tell.
    QRect trayIconGeometry() const;

    QMenu& menu() { return m_menu; }
    QSystemTrayIcon* trayIcon() const { return m_tray.get(); }
    // Fills the menu for the current state; runs whenever it is about to show.
    void rebuildMenu();

    // The menu's item actions. An argument that is not what the item should
    // carry (a name the catalogue lacks, an unknown format) does nothing.
    void copyIcon(const QVariant& name);
    void setFormat(const QVariant& rawFormat);

    // For tests: name keys with this layout instead of the desktop's.
    void setKeyboardLayout(std::shared_ptr<const KeyboardLayout> layout);

private:
    void activated(QSystemTrayIcon::ActivationReason reason);
    void createTray();
    void pollForTray();
    void traceDocking();
    void updateLook();
    TrayMenuContent content() const;

    Preferences& m_prefs;
    UserLibrary& m_user;
    const IconLibrary& m_library;
    Actions m_actions;
    QMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_tray;
    std::shared_ptr<const KeyboardLayout> m_layout;
    bool m_hasLayout = false;
    QTimer m_trayPoll;
    std::function<bool()> m_trayAvailable = &QSystemTrayIcon::isSystemTrayAvailable;
    int m_polls = 0;
    bool m_setUp = false;
    std::function<QColor()> m_foreground = [] { return QColor(Qt::black); };
    QColor m_iconColor;
};
