#include "WindowManager.h"

#include "AboutInfo.h"
#include "SettingsForm.h"
#include "State/Preferences.h"
#include "Ui/AppPalette.h"
#include "Ui/GlyphImageProvider.h"
#include "Ui/Kit/KitQml.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

// Made by qmltyperegistrar for the module the windows' QML and this class
// share. The module has no plugin to import, so the engine sets up its types
// with this call.
void qml_register_types_Pictray_Windows();

namespace {

const char* const currentTabProperty = "currentTab";

} // namespace

WindowManager::WindowManager(Preferences& prefs, IconLibrary& library,
                             const SettingsServices& services, QObject* parent)
    : QObject(parent), m_prefs(prefs), m_library(library), m_services(services),
      m_aboutInfo(std::make_unique<AboutInfo>(library))
{
}

WindowManager::~WindowManager()
{
    // The windows go before the engine that made them, and without telling
    // this half-destroyed manager that they hide.
    for (QQuickWindow* window : {m_onboarding.data(), m_about.data(), m_settings.data()}) {
        if (window)
            window->disconnect(this);
    }
    delete m_onboarding;
    delete m_about;
    delete m_settings;
}

SettingsForm& WindowManager::settingsForm()
{
    if (!m_form)
        m_form = std::make_unique<SettingsForm>(m_prefs, m_library, m_services);
    return *m_form;
}

void WindowManager::chooseControlsStyle()
{
    // Through the environment rather than QQuickStyle, so the program does
    // not link (and load at start) the Controls libraries, which only these
    // windows use.
    if (qEnvironmentVariableIsEmpty("QT_QUICK_CONTROLS_STYLE"))
        qputenv("QT_QUICK_CONTROLS_STYLE", "Fusion");
}

QString WindowManager::label(Tab tab)
{
    switch (tab) {
    case Tab::general:
        return QStringLiteral("General");
    case Tab::copy:
        return QStringLiteral("Copy");
    case Tab::about:
        break;
    }
    return QStringLiteral("About");
}

QQmlEngine& WindowManager::engine()
{
    // Made on the first window, so a tray that is never opened pays nothing.
    if (!m_engine) {
        m_engine = std::make_unique<QQmlEngine>();
        m_engine->addImportPath(QStringLiteral("qrc:/"));
        registerKitQml(*m_engine, m_library);
        qml_register_types_Pictray_Windows();
        m_engine->addImageProvider(QStringLiteral("glyph"), new GlyphImageProvider(m_library));
    }
    return *m_engine;
}

QQuickWindow* WindowManager::create(const QString& file, QVariantMap properties)
{
    QQmlComponent component(&engine(), QUrl(QStringLiteral("qrc:/Pictray/Windows/") + file));
    // Every window follows the appearance and shows what the about view says.
    properties.insert(QStringLiteral("appearance"), QVariant::fromValue(&m_appearance));
    properties.insert(QStringLiteral("about"), QVariant::fromValue(m_aboutInfo.get()));
    // Qt 6.4 crashes when asked to create from a component that failed.
    QObject* object =
        component.isReady() ? component.createWithInitialProperties(properties) : nullptr;
    auto* window = qobject_cast<QQuickWindow*>(object);
    if (!window) {
        qWarning().noquote() << "Pictray: cannot make" << file << component.errorString();
        delete object;
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(window, QQmlEngine::CppOwnership);
    return window;
}

void WindowManager::stopRecordingOnClose(QQuickWindow* window)
{
    // The form outlives its windows: a recorder left listening in a closed
    // window would keep the global hot keys off.
    connect(window, &QWindow::visibleChanged, this, [this](bool visible) {
        if (visible || !m_form)
            return;
        m_form->pickerShortcut()->stopRecording();
        m_form->copyLastShortcut()->stopRecording();
    });
}

void WindowManager::forgetOnClose(QPointer<QQuickWindow> WindowManager::*slot)
{
    QQuickWindow* window = this->*slot;
    auto connection = std::make_shared<QMetaObject::Connection>();
    const auto forget = [this, slot, window, connection](bool visible) {
        if (visible)
            return;
        // Once only: the window's destructor announces the hiding again,
        // when it is no longer a QQuickWindow.
        disconnect(*connection);
        // Forgotten at once, so a request right after the close makes a new one.
        if (this->*slot == window)
            (this->*slot).clear();
        window->deleteLater();
    };
    *connection = connect(window, &QWindow::visibleChanged, this, forget);
}

bool WindowManager::eventFilter(QObject* watched, QEvent* event)
{
    // By identity, not by cast: a window being destroyed still passes
    // events through here after it has stopped being a QQuickWindow.
    if (event->type() != QEvent::KeyPress)
        return false;
    QQuickWindow* window = watched == m_settings ? m_settings.data()
                           : watched == m_about  ? m_about.data()
                                                 : nullptr;
    if (!window)
        return false;
    // A shortcut recorder that is listening takes Escape as "cancel".
    if (m_form &&
        (m_form->pickerShortcut()->isRecording() || m_form->copyLastShortcut()->isRecording()))
        return false;
    // An open popup (a list of choices) takes Escape for itself.
    for (const QQuickItem* item = window->activeFocusItem(); item; item = item->parentItem()) {
        if (item->inherits("QQuickPopupItem"))
            return false;
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Escape && !key->matches(QKeySequence::Close))
        return false;
    // After the key's delivery, not in the middle of it: a window torn down
    // inside its own key event leaves its software-rendered frame behind.
    QMetaObject::invokeMethod(window, &QWindow::close, Qt::QueuedConnection);
    return true;
}

void WindowManager::showSettings(Tab tab)
{
    if (!m_settings) {
        m_settings = create(QStringLiteral("SettingsWindow.qml"),
                            {{QStringLiteral("form"), QVariant::fromValue(&settingsForm())}});
        if (!m_settings)
            return;
        m_settings->installEventFilter(this);
        stopRecordingOnClose(m_settings);
    }
    m_settings->setProperty(currentTabProperty, int(tab));
    present(m_settings, true);
}

std::optional<WindowManager::Tab> WindowManager::settingsTab() const
{
    if (!m_settings)
        return std::nullopt;
    return Tab(m_settings->property(currentTabProperty).toInt());
}

void WindowManager::showAbout()
{
    if (!m_about) {
        m_about = create(QStringLiteral("AboutWindow.qml"), {});
        if (!m_about)
            return;
        m_about->installEventFilter(this);
        forgetOnClose(&WindowManager::m_about);
    }
    present(m_about, true);
}

void WindowManager::showOnboarding()
{
    if (!m_onboarding) {
        m_onboarding = create(QStringLiteral("OnboardingWindow.qml"),
                              {{QStringLiteral("form"), QVariant::fromValue(&settingsForm())},
                               {QStringLiteral("windowManager"), QVariant::fromValue(this)}});
        if (!m_onboarding)
            return;
        stopRecordingOnClose(m_onboarding);
        forgetOnClose(&WindowManager::m_onboarding);
    }
    present(m_onboarding, true);
}

void WindowManager::finishOnboarding()
{
    m_prefs.setHasCompletedOnboarding(true);
    if (m_onboarding)
        m_onboarding->close();
    emit pickerRequested();
}

void WindowManager::present(QWindow* window, bool center)
{
    if (!window)
        return;
    if (center && !window->isVisible()) {
        QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
        if (!screen)
            screen = QGuiApplication::primaryScreen();
        if (screen) {
            window->setScreen(screen);
            const QRect available = screen->availableGeometry();
            window->setPosition(available.center() -
                                QPoint(window->width() / 2, window->height() / 2));
        }
    }
    window->show();
    window->raise();
    window->requestActivate();
}

void WindowManager::applyAppearance()
{
    const AppearanceMode mode = m_prefs.appearance();
    // A default palette stands for the desktop's own.
    const QPalette palette = AppPalette::forMode(mode).value_or(QPalette());
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        QApplication::setPalette(palette);
    else if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        QGuiApplication::setPalette(palette);
    // The windows, open or kept, bind their colours to it.
    m_appearance.setMode(mode);
}

bool WindowManager::hasVisibleWindow() const
{
    for (const QQuickWindow* window : {m_settings.data(), m_about.data(), m_onboarding.data()}) {
        if (window && window->isVisible())
            return true;
    }
    return false;
}
