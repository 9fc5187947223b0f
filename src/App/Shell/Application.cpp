#include "Application.h"

#include "AppWindows/WindowManager.h"
#include "Base/KeyboardLayout.h"
#include "Base/WatchedFile.h"
#include "Catalog/IconLibrary.h"
#include "Catalog/IconUpdater.h"
#include "Export/CopyService.h"
#include "HeapTrim.h"
#include "Panel/PickerController.h"
#include "Panel/Views/PictrayQml.h"
#include "Picker/PickerModel.h"
#include "Platform/HotKeyBackend.h"
#include "Platform/HotKeyCenter.h"
#include "Platform/StatusNotifier/StatusNotifierWatch.h"
#include "StartupTrace.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"
#include "StatusItemController.h"
#include "Ui/HUD.h"
#include "Ui/QtClipboard.h"
#include "UpdateChecker.h"

#include <QApplication>
#include <QTimer>

namespace {
constexpr int panelPreparationDelayMs = 1500;
// The automatic update check waits until start-up has long settled.
constexpr int updateCheckDelayMs = 10'000;
} // namespace

Application::Application(Backends backends, QObject* parent)
    : QObject(parent), m_makeBackends(std::move(backends))
{
    if (!m_makeBackends)
        m_makeBackends = [](SettingsStore& store) {
            return PlatformBackends::forPlatform(QGuiApplication::platformName(), &store);
        };
}

// The members are declared in start-up order, so views and controllers go
// before the services they use.
Application::~Application() = default;

void Application::start()
{
    m_store = std::make_unique<SettingsStore>(SettingsStore::defaultPath());
    m_platform = m_makeBackends(*m_store);
    KeyboardLayout::setCurrent(m_platform.keyboardLayout);

    m_prefs = std::make_unique<Preferences>(*m_store);
    StartupTrace::mark("preferences");

    m_library = std::make_unique<IconLibrary>(
        IconLibrary::Sources{IconLibrary::shippedFilePath(), IconLibrary::downloadedFilePath()});
    m_user = std::make_unique<UserLibrary>(*m_store, *m_prefs, [this](const QString& name) {
        return !m_library->icon(name).isNull();
    });
    m_iconUpdater = std::make_unique<IconUpdater>(*m_library);
    StartupTrace::mark("catalogue");

    // Before Pictray's own appearance replaces it: trays follow the desktop.
    const QColor desktopText = QGuiApplication::palette().color(QPalette::WindowText);
    // Registered later, once the picker exists; the settings window's
    // recorders suspend and resume it.
    m_hotKeys = std::make_unique<HotKeyCenter>(std::move(m_platform.hotKeys));
    m_windows = std::make_unique<WindowManager>(*m_prefs, *m_library,
                                                SettingsServices{*m_user, *m_iconUpdater,
                                                                 *m_hotKeys, *m_platform.loginItem,
                                                                 *m_platform.paster});
    m_windows->applyAppearance();
    StartupTrace::mark("appearance");

    m_clipboard = std::make_unique<QtClipboard>();
    if (m_platform.session.clipboardNeedsFocus)
        m_clipboard->useFocusCarrier();
    m_hud = std::make_unique<HUD>();
    m_copy = std::make_unique<CopyService>(*m_library, *m_user, *m_prefs, *m_clipboard, *m_hud,
                                           *m_platform.paster);
    m_model = std::make_unique<PickerModel>(*m_library, *m_user, *m_prefs, m_copy.get());
    m_picker = std::make_unique<PickerController>(*m_model, *m_prefs, *m_user, *m_copy,
                                                  *m_platform.paster);
    m_picker->setSession(m_platform.session);
    m_picker->setRendition(hostRendition());
    m_picker->setEngineSetup(
        [this](QQmlEngine& engine) { registerPictrayQml(engine, *m_library); });
    connect(m_picker.get(), &PickerController::settingsRequested, this,
            [this](int tab) { m_windows->showSettings(WindowManager::Tab(tab)); });
    connect(m_picker.get(), &PickerController::quitRequested, qApp, &QCoreApplication::quit,
            Qt::QueuedConnection);
    connect(m_windows.get(), &WindowManager::pickerRequested, this, [this] { m_picker->show(); });

    StatusItemController::Actions actions;
    actions.showPicker = [this](const std::optional<PickerTab>& tab) { m_picker->show(tab); };
    actions.togglePicker = [this] { m_picker->toggle(); };
    actions.hidePicker = [this] { m_picker->hide(); };
    actions.copyLast = [this] { m_copy->copyLastAgain(); };
    actions.copyIcon = [this](const Icon& icon) { m_copy->copyWithDefaults(icon); };
    actions.openSettings = [this] { m_windows->showSettings(WindowManager::Tab::general); };
    actions.checkUpdates = [this] { m_updates->checkForUpdates(); };
    actions.openAbout = [this] { m_windows->showAbout(); };
    actions.quit = [] { QCoreApplication::quit(); };
    m_status =
        std::make_unique<StatusItemController>(*m_prefs, *m_user, *m_library, std::move(actions));
    m_status->setTrayForeground([tray = m_platform.trayForeground, desktopText] {
        return (tray ? tray() : std::nullopt).value_or(desktopText);
    });
    m_trayHosts = std::make_unique<StatusNotifierWatch>();
    // Asked only once a tray may be there: asking Qt makes it choose the
    // kind of tray for good.
    const bool xembed = QGuiApplication::platformName() == u"xcb";
    m_status->setTrayAvailable([this, xembed] {
        return m_trayHosts->isPresent() || (xembed && QSystemTrayIcon::isSystemTrayAvailable());
    });
    connect(m_trayHosts.get(), &StatusNotifierWatch::presenceChanged, m_status.get(),
            &StatusItemController::updateVisibility);
    m_status->setup();
    m_picker->setTrayIconGeometry([this] { return m_status->trayIconGeometry(); });
    StartupTrace::mark("tray icon set up");

    registerHotKeys();
    StartupTrace::mark("hot keys");
    m_updates = std::make_unique<UpdateChecker>(*m_prefs);

    subscribeToSettings();
    followOutsideChanges();
    if (!m_prefs->hasCompletedOnboarding())
        m_windows->showOnboarding();
    StartupTrace::mark("started");
    // Once the tray is up and idle, load the panel and the search index so
    // that the first hot key press and the first keystroke find them ready.
    QTimer::singleShot(panelPreparationDelayMs, m_picker.get(), [this] {
        m_picker->preparePanel();
        m_library->searchIndex();
        HeapTrim::releaseIdleMemory();
        StartupTrace::mark("panel and search index ready");
    });
    // A hidden panel waits, maybe for hours: give back what its frames freed
    // and the catalogue pages they read.
    connect(m_picker.get(), &PickerController::hidden, this, &HeapTrim::releaseIdleMemory,
            Qt::QueuedConnection);
    QTimer::singleShot(updateCheckDelayMs, m_updates.get(), [this] { m_updates->startSchedule(); });
}

void Application::registerHotKeys()
{
    m_hotKeys->registerHotKey(HotKeyCenter::ID::picker, m_prefs->pickerHotKey(), [this] {
        if (!m_picker->isVisible())
            m_panelTrace.hotKeyPressed(m_picker->panel());
        m_picker->toggle();
    });
    m_hotKeys->registerHotKey(HotKeyCenter::ID::copyLast, m_prefs->copyLastHotKey(),
                              [this] { m_copy->copyLastAgain(); });
}

void Application::subscribeToSettings()
{
    // Change signals only: the current values were applied above.
    connect(m_prefs.get(), &Preferences::pickerHotKeyChanged, this, &Application::registerHotKeys);
    connect(m_prefs.get(), &Preferences::copyLastHotKeyChanged, this,
            &Application::registerHotKeys);
    connect(m_prefs.get(), &Preferences::showMenuBarIconChanged, m_status.get(),
            &StatusItemController::updateVisibility);
    // These two run once the change has completed.
    connect(
        m_prefs.get(), &Preferences::appearanceChanged, this,
        [this] { m_windows->applyAppearance(); }, Qt::QueuedConnection);
    connect(
        m_prefs.get(), &Preferences::recentsLimitChanged, this, [this] { m_user->trimRecents(); },
        Qt::QueuedConnection);
}

void Application::followOutsideChanges()
{
    // A file that cannot be taken in whole leaves every value as it is; the
    // writer's next change is noticed again.
    m_settingsFile = std::make_unique<WatchedFile>(m_store->filePath());
    connect(m_settingsFile.get(), &WatchedFile::changed, this, [this] {
        if (!m_store->refresh())
            return;
        m_prefs->reload();
        m_user->reload();
    });
    m_catalogueFile = std::make_unique<WatchedFile>(m_library->sources().downloadedPath);
    connect(m_catalogueFile.get(), &WatchedFile::changed, this, [this] { m_library->refresh(); });
}

void Application::reopen()
{
    if (!m_windows->hasVisibleWindow() && !m_picker->isVisible())
        m_windows->showSettings(WindowManager::Tab::general);
}

InstanceReply Application::handle(const InstanceRequest& request)
{
    switch (request.kind) {
    case InstanceRequest::Kind::reopen:
        reopen();
        break;
    case InstanceRequest::Kind::toggle:
        m_picker->toggle();
        break;
    case InstanceRequest::Kind::show:
        m_picker->show(request.tab);
        break;
    case InstanceRequest::Kind::copyLast:
        if (!m_user->lastCopy())
            return {false, QStringLiteral("Nothing has been copied yet.")};
        if (!m_copy->copyLastAgain())
            return {false, QStringLiteral("The last icon could not be copied again.")};
        break;
    }
    return {};
}
