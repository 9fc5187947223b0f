#pragma once

#include "App/Instance/InstanceRequest.h"
#include "PanelTrace.h"
#include "Platform/PlatformBackends.h"

#include <QObject>
#include <functional>
#include <memory>

class CopyService;
class HotKeyCenter;
class IconUpdater;
class HUD;
class IconLibrary;
class PickerController;
class PickerModel;
class Preferences;
class QtClipboard;
class SettingsStore;
class StatusItemController;
class StatusNotifierWatch;
class UpdateChecker;
class UserLibrary;
class WatchedFile;
class WindowManager;

// The tray application: owns every long-lived service, wires them together
// at start-up and answers the requests of other `pictray` processes. Needs a
// QApplication; main thread only.
class Application : public QObject {
    Q_OBJECT

public:
    // Makes the platform's backends at start-up, given the settings store;
    // by default those of the Qt platform the program runs on.
    using Backends = std::function<PlatformBackends(SettingsStore&)>;
    explicit Application(Backends backends = {}, QObject* parent = nullptr);
    ~Application() override;

    // In this order: settings, platform backends, catalogue, appearance, tray
    // icon, global shortcuts, update checker, reactions to setting changes,
    // and the first-run window when onboarding was never finished.
    void start();

    InstanceReply handle(const InstanceRequest& request);
    // Started again while running: with none of its windows on screen, the
    // settings window opens (the way back when the tray icon is hidden).
    void reopen();
    // Binds both global shortcuts from the settings; a refused one stays off.
    void registerHotKeys();

    Preferences& preferences() { return *m_prefs; }
    WindowManager& windowManager() { return *m_windows; }
    PickerController& picker() { return *m_picker; }
    StatusItemController& statusItem() { return *m_status; }
    // Starting at login, as this desktop does it.
    LoginItem& loginItem() { return *m_platform.loginItem; }
    UserLibrary& userLibrary() { return *m_user; }
    IconLibrary& iconLibrary() { return *m_library; }

private:
    void subscribeToSettings();
    // Takes in what other processes (`pictray prefs`, `pictray favorites`,
    // `pictray update`) write to the settings and catalogue files.
    void followOutsideChanges();

    Backends m_makeBackends;
    std::unique_ptr<SettingsStore> m_store;
    PlatformBackends m_platform;
    std::unique_ptr<Preferences> m_prefs;
    std::unique_ptr<IconLibrary> m_library;
    std::unique_ptr<UserLibrary> m_user;
    std::unique_ptr<IconUpdater> m_iconUpdater;
    std::unique_ptr<QtClipboard> m_clipboard;
    std::unique_ptr<HUD> m_hud;
    std::unique_ptr<CopyService> m_copy;
    std::unique_ptr<HotKeyCenter> m_hotKeys;
    std::unique_ptr<PickerModel> m_model;
    std::unique_ptr<PickerController> m_picker;
    std::unique_ptr<WindowManager> m_windows;
    std::unique_ptr<StatusNotifierWatch> m_trayHosts;
    std::unique_ptr<StatusItemController> m_status;
    std::unique_ptr<UpdateChecker> m_updates;
    std::unique_ptr<WatchedFile> m_settingsFile;
    std::unique_ptr<WatchedFile> m_catalogueFile;
    PanelTrace m_panelTrace;
};
