#pragma once

#include "Base/Rendition.h"
#include "Picker/PickerTab.h"
#include "Platform/WindowingSession.h"
#include "PopoverState.h"
#include "Ui/Kit/Appearance.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class CopyService;
class FormatMenu;
class Paster;
class PanelWindow;
class PickerModel;
class Preferences;
class QKeyEvent;
class QQmlEngine;
class QQuickWindow;
class UserLibrary;

// Owns the floating picker panel: places it, opens and closes it, turns key
// presses into actions on the model, shows the "Copy as" menu and applies the
// after-copy setting. One per application; main thread only.
class PickerController : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    // A second Escape within this time closes even while searching.
    static constexpr std::chrono::milliseconds escapeWindow{600};
    // A toggle this soon after the panel closed because it lost the
    // keyboard is the same click that took it away (the tray icon's click
    // deactivates the panel first): it does not reopen it.
    static constexpr std::chrono::milliseconds toggleAfterDeactivation{300};
    // A loss of the keyboard this soon after showing may be the previous
    // showing's, reported late: closed and opened again at once on a busy
    // machine, the panel is told it lost the keyboard after it showed again.
    // It then closes only if it has not got the keyboard by the end of this.
    static constexpr std::chrono::milliseconds keyboardGrace{400};

    PickerController(PickerModel& model, Preferences& prefs, UserLibrary& user,
                     CopyService& copyService, Paster& paster, QObject* parent = nullptr);
    ~PickerController() override;

    static QUrl defaultRootUrl()
    {
        return QUrl(QStringLiteral("qrc:/Pictray/Picker/PopoverRoot.qml"));
    }
    // The panel's root QML; takes effect when the panel is made (first show).
    void setRootUrl(const QUrl& url) { m_rootUrl = url; }
    // Prepares the panel's QML engine before the root is loaded.
    void setEngineSetup(std::function<void(QQmlEngine&)> setup)
    {
        m_engineSetup = std::move(setup);
    }
    // Makes the panel ahead of its first opening, so the hot key shows a
    // ready window instead of waiting for the QML to load.
    void preparePanel();

    // The tray icon's frame in global Qt coordinates; an empty rect when the
    // tray does not report it.
    void setTrayIconGeometry(std::function<QRect()> provider);

    // What the session allows the panel's placement (until told: all of
    // X11's), and the words its keys and menu use.
    void setSession(const WindowingSession& session) { m_session = session; }
    void setRendition(Rendition rendition) { m_rendition = rendition; }

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
    // What the panel's root view follows; takes the setting at every opening.
    Appearance& appearance() { return m_appearance; }

    // The panel's keys; true when the key was the panel's and is consumed.
    bool handle(const QKeyEvent& event);
    // After a successful copy: close, stay, or close and paste.
    void didCopy();
    // Asks the views for the "Copy as" menu (they know where the copy button
    // is and answer with openFormatMenu); a beep with nothing to copy.
    void showFormatMenu();
    // The "Copy as" menu just under `copyButton`, a frame in the panel
    // window's coordinates.
    Q_INVOKABLE void openFormatMenu(const QRectF& copyButton);
    // The format menu while it is open.
    FormatMenu* formatMenu() const;
    bool showingMenu() const { return m_showingMenu; }
    // Whether a loss of the keyboard soon after showing waits to be confirmed.
    bool confirmingKeyboardLoss() const { return m_confirmKeyboardLoss.isActive(); }

    // For tests: the time source of the Escape and keyboard rules, and the beep.
    void setClock(Clock clock) { m_clock = std::move(clock); }
    void setBeep(std::function<void()> beep) { m_beep = std::move(beep); }

    // Called from the views.
    // Hides the panel and asks for the settings window on its first tab.
    Q_INVOKABLE void openSettings();
    // The colour typed into the inspector's field, as HexColor::fromTyped
    // reads it; anything else beeps and changes nothing.
    Q_INVOKABLE bool setColorText(const QString& text);
    // Drags the icon of that name out of the panel as the drag format setting says.
    Q_INVOKABLE void startDrag(const QString& iconName);

signals:
    // The views answer with openFormatMenu.
    void formatMenuRequested();
    // The panel asks for the settings window on a tab (0 General, 1 Copy).
    void settingsRequested(int tab);
    void quitRequested();
    // The panel went out of sight, however it was closed.
    void hidden();

protected:
    // The key monitor: the panel's key presses, while it is shown.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makePanel();
    void place();
    void escape();
    void toggleFavorite();
    void panelDeactivated();
    void closeForLostKeyboard();
    void beep();

    PickerModel& m_model;
    Preferences& m_prefs;
    UserLibrary& m_user;
    CopyService& m_copyService;
    Paster& m_paster;

    QUrl m_rootUrl = defaultRootUrl();
    std::function<void(QQmlEngine&)> m_engineSetup;
    std::function<QRect()> m_trayIcon;
    WindowingSession m_session = WindowingSession::x11();
    Rendition m_rendition = hostRendition();
    PopoverState m_popover;
    Appearance m_appearance;
    std::unique_ptr<PanelWindow> m_panel;
    bool m_monitoring = false;
    bool m_showingMenu = false;
    bool m_dragging = false;
    QPointer<FormatMenu> m_menu;
    Clock m_clock = [] { return std::chrono::steady_clock::now(); };
    std::function<void()> m_beep;
    std::optional<std::chrono::steady_clock::time_point> m_lastEscape;
    std::optional<std::chrono::steady_clock::time_point> m_lastDeactivationHide;
    std::chrono::steady_clock::time_point m_shownAt;
    QTimer m_confirmKeyboardLoss;
};
