#pragma once

#include "SettingsServices.h"
#include "Ui/Kit/Appearance.h"

#include <QObject>
#include <QPointer>
#include <QQuickWindow>
#include <QtQml/qqmlregistration.h>
#include <memory>
#include <optional>

class AboutInfo;
class IconLibrary;
class Preferences;
class QQmlEngine;
class SettingsForm;

// Owns the program's ordinary windows: settings (kept once made, so its tab
// survives closing), about and onboarding (made afresh after closing). It
// brings them to the front and applies the appearance setting to them and
// to the application. The picker panel is not one of them.
class WindowManager : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one manager owns the windows")

public:
    enum class Tab { general, copy, about };
    Q_ENUM(Tab)

    WindowManager(Preferences& prefs, IconLibrary& library, const SettingsServices& services,
                  QObject* parent = nullptr);
    ~WindowManager() override;

    // Qt Quick Controls in the Fusion style, which draws with the application
    // palette and so follows the appearance like the tray menu does. Call
    // before any QML is loaded; QT_QUICK_CONTROLS_STYLE still wins.
    static void chooseControlsStyle();

    // "General", "Copy", "About": the tab's label and the window's title.
    static QString label(Tab tab);

    void showSettings(Tab tab = Tab::general);
    void showAbout();
    void showOnboarding();
    // Centres the window when asked and it is not visible yet, shows it,
    // raises it and gives it the keyboard.
    void present(QWindow* window, bool center);
    // The appearance setting, on the application (widgets such as the tray
    // menu follow its palette) and on every window, open or kept.
    void applyAppearance();

    // Stores that onboarding is done, closes its window, then asks for the picker.
    Q_INVOKABLE void finishOnboarding();

    Appearance& appearance() { return m_appearance; }
    QQuickWindow* settingsWindow() const { return m_settings; }
    QQuickWindow* aboutWindow() const { return m_about; }
    QQuickWindow* onboardingWindow() const { return m_onboarding; }
    // What the settings and onboarding windows bind to, made with the first.
    SettingsForm& settingsForm();
    std::optional<Tab> settingsTab() const;
    // Whether any of the three is on screen.
    bool hasVisibleWindow() const;

signals:
    // After onboarding finished: the user should see the picker now.
    void pickerRequested();

protected:
    // Escape and Ctrl+W close the settings and about windows.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QQmlEngine& engine();
    // The window in `file`, given `properties` and the appearance and about
    // information every window takes.
    QQuickWindow* create(const QString& file, QVariantMap properties);
    // Forgets (and deletes) the window once it is closed.
    void forgetOnClose(QPointer<QQuickWindow> WindowManager::*slot);
    void stopRecordingOnClose(QQuickWindow* window);

    Preferences& m_prefs;
    IconLibrary& m_library;
    SettingsServices m_services;
    Appearance m_appearance;
    std::unique_ptr<SettingsForm> m_form;
    std::unique_ptr<AboutInfo> m_aboutInfo;
    std::unique_ptr<QQmlEngine> m_engine;
    QPointer<QQuickWindow> m_settings;
    QPointer<QQuickWindow> m_about;
    QPointer<QQuickWindow> m_onboarding;
};
