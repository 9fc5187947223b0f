#include "StatusItemController.h"

#include "Base/KeyCombo.h"
#include "Base/KeyboardLayout.h"
#include "Base/Rendition.h"
#include "Catalog/IconLibrary.h"
#include "MenuIcons.h"
#include "StartupTrace.h"
#include "State/Preferences.h"
#include "State/UserLibrary.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QGuiApplication>

StatusItemController::StatusItemController(Preferences& prefs, UserLibrary& user,
                                           const IconLibrary& library, Actions actions,
                                           QObject* parent)
    : QObject(parent), m_prefs(prefs), m_user(user), m_library(library),
      m_actions(std::move(actions))
{
    connect(&m_menu, &QMenu::aboutToShow, this, &StatusItemController::rebuildMenu);
    m_trayPoll.setSingleShot(true);
    connect(&m_trayPoll, &QTimer::timeout, this, &StatusItemController::pollForTray);
}

StatusItemController::~StatusItemController() = default;

void StatusItemController::setup()
{
    if (m_setUp)
        return;
    m_setUp = true;
    connect(&m_prefs, &Preferences::pickerHotKeyChanged, this, &StatusItemController::updateLook);
    updateVisibility();
}

void StatusItemController::setTrayAvailable(std::function<bool()> available)
{
    m_trayAvailable = std::move(available);
    updateVisibility();
}

void StatusItemController::createTray()
{
    // Made only once a tray is there: Qt chooses between a StatusNotifierItem
    // and an XEmbed icon when the icon is made, and never again.
    m_tray = std::make_unique<QSystemTrayIcon>();
    m_iconColor = QColor();
    updateLook();
    // Attached for good: trays that draw the menu themselves (StatusNotifier
    // hosts) need it, and on XEmbed trays Qt opens it on a right click.
    m_tray->setContextMenu(&m_menu);
    connect(m_tray.get(), &QSystemTrayIcon::activated, this, &StatusItemController::activated);
}

bool StatusItemController::isShown() const
{
    return m_tray && m_tray->isVisible();
}

void StatusItemController::updateVisibility()
{
    if (!m_setUp)
        return;
    const bool wanted = m_prefs.showMenuBarIcon();
    if (wanted && !m_trayAvailable()) {
        // Started before the desktop's tray (at login), or no tray at all:
        // shortcuts and `pictray toggle` still work meanwhile.
        if (!m_trayPoll.isActive())
            m_trayPoll.start(m_polls < fastTrayPollCount ? fastTrayPollMs : slowTrayPollMs);
        return;
    }
    m_trayPoll.stop();
    if (wanted && !m_tray)
        createTray();
    if (!m_tray)
        return;
    if (wanted)
        updateLook(); // a tray that came late may want another colour
    m_tray->setVisible(wanted);
    if (wanted && StartupTrace::enabled())
        traceDocking();
}

void StatusItemController::updateLook()
{
    if (!m_tray)
        return;
    if (const QColor color = m_foreground(); color != m_iconColor) {
        m_iconColor = color;
        m_tray->setIcon(MenuIcons::trayIcon(m_library, color));
    }
    m_tray->setToolTip(toolTip());
}

QString StatusItemController::toolTip() const
{
    const std::optional<KeyCombo> combo = m_prefs.pickerHotKey();
    if (!combo)
        return QStringLiteral("Pictray");
    const KeyboardLayout* layout = m_hasLayout ? m_layout.get() : KeyboardLayout::current().get();
    const Rendition rendition = hostRendition();
    // Mac key caps run together ("⌃⌥I"); elsewhere they are joined with "+".
    const QString joiner = rendition == Rendition::mac ? QString() : QStringLiteral("+");
    return QStringLiteral("Pictray — ") + combo->keyCaps(rendition, layout).join(joiner);
}

void StatusItemController::traceDocking()
{
    static bool traced = false;
    if (traced)
        return;
    traced = true;
    StartupTrace::mark("tray icon shown");
    // The tray takes the icon in asynchronously; it has a frame once it has.
    auto* timer = new QTimer(this);
    auto waited = std::make_shared<QElapsedTimer>();
    waited->start();
    connect(timer, &QTimer::timeout, this, [this, timer, waited] {
        const bool docked = !trayIconGeometry().isEmpty();
        if (docked)
            StartupTrace::mark("tray icon in the tray");
        if (docked || waited->hasExpired(5000)) {
            timer->stop();
            timer->deleteLater();
        }
    });
    timer->start(5);
}

void StatusItemController::pollForTray()
{
    ++m_polls;
    updateVisibility();
}

QRect StatusItemController::trayIconGeometry() const
{
    if (!isShown())
        return {};
    return m_tray->geometry();
}

void StatusItemController::activated(QSystemTrayIcon::ActivationReason reason)
{
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        if (QGuiApplication::queryKeyboardModifiers() & Qt::ControlModifier) {
            if (m_actions.hidePicker)
                m_actions.hidePicker();
            m_menu.popup(QCursor::pos());
            return;
        }
        if (m_actions.togglePicker)
            m_actions.togglePicker();
        return;
    case QSystemTrayIcon::Context:
        // The tray itself opens the menu.
        if (m_actions.hidePicker)
            m_actions.hidePicker();
        return;
    case QSystemTrayIcon::DoubleClick:
    case QSystemTrayIcon::MiddleClick:
    case QSystemTrayIcon::Unknown:
        return;
    }
}

void StatusItemController::setKeyboardLayout(std::shared_ptr<const KeyboardLayout> layout)
{
    m_layout = std::move(layout);
    m_hasLayout = true;
}

TrayMenuContent StatusItemController::content() const
{
    TrayMenuContent content;
    content.pickerHotKey = m_prefs.pickerHotKey();
    content.copyLastHotKey = m_prefs.copyLastHotKey();
    content.recents = m_user.recents();
    content.favorites = m_user.favorites();
    content.lastCopy = m_user.lastCopy();
    content.defaultFormat = m_prefs.defaultFormat();
    content.reactLanguage = m_prefs.reactLanguage();
    content.pngFormats = m_prefs.enabledPNGFormats();
    return content;
}

void StatusItemController::rebuildMenu()
{
    if (!m_hasLayout)
        setKeyboardLayout(KeyboardLayout::current());
    TrayMenuActions actions;
    actions.openPicker = [this] {
        if (m_actions.showPicker)
            m_actions.showPicker(std::nullopt);
    };
    actions.openFavorites = [this] {
        if (m_actions.showPicker)
            m_actions.showPicker(PickerTab::favorites());
    };
    actions.copyLast = m_actions.copyLast;
    actions.copyIcon = [this](const QVariant& name) { copyIcon(name); };
    actions.setFormat = [this](const QVariant& raw) { setFormat(raw); };
    actions.openSettings = m_actions.openSettings;
    actions.checkUpdates = m_actions.checkUpdates;
    actions.openAbout = m_actions.openAbout;
    actions.quit = m_actions.quit;
    TrayMenu::build(m_menu, content(), m_library, m_layout.get(), actions);
}

void StatusItemController::copyIcon(const QVariant& name)
{
    if (name.typeId() != QMetaType::QString)
        return;
    const Icon icon = m_library.icon(name.toString());
    if (icon.isNull() || !m_actions.copyIcon)
        return;
    m_actions.copyIcon(icon);
}

void StatusItemController::setFormat(const QVariant& rawFormat)
{
    if (rawFormat.typeId() != QMetaType::QString)
        return;
    if (const auto format = fromRawValue<ExportFormat>(rawFormat.toString()))
        m_prefs.setDefaultFormat(*format);
}
