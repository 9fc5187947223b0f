// Renders the settings tabs and the onboarding steps offscreen, light and
// dark, over the shipped catalogue with settings in a throw-away folder, and
// saves a PNG of each for design review:
//   window-shots [OUTPUT_DIR]
#include "AppWindows/WindowManager.h"
#include "Base/KeyboardLayout.h"
#include "Catalog/IconLibrary.h"
#include "Catalog/IconUpdater.h"
#include "Platform/HotKeyCenter.h"
#include "Platform/Null/NullHotKeyBackend.h"
#include "Platform/Null/NullLoginItem.h"
#include "Platform/Null/NullPaster.h"
#include "Platform/PlatformBackends.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"

#include <QApplication>
#include <QDir>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// Lets the window lay out and draw before it is grabbed.
void settle()
{
    for (int round = 0; round < 60; ++round)
        QCoreApplication::processEvents();
}

void save(QQuickWindow* window, const QString& path, QTextStream& out)
{
    settle();
    window->grabWindow().save(path);
    out << "saved " << path << Qt::endl;
}

} // namespace

int main(int argc, char** argv)
{
    QTemporaryDir home;
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QDir(home.path()).filePath(QString::fromLatin1(name)).toLocal8Bit());
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    WindowManager::chooseControlsStyle();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pictray"));
    const QString outDir = app.arguments().value(1, QStringLiteral("docs/screenshots"));
    QDir().mkpath(outDir);
    QTextStream out(stdout);
    // Key caps named as on a real keyboard.
    KeyboardLayout::setCurrent(
        PlatformBackends::forPlatform(QGuiApplication::platformName()).keyboardLayout);

    SettingsStore store(QDir(home.path()).filePath(QStringLiteral("Pictray.conf")));
    Preferences prefs(store);
    IconLibrary library(IconLibrary::Sources{IconLibrary::shippedFilePath(), QString()});
    UserLibrary user(store, prefs,
                     [&](const QString& name) { return !library.icon(name).isNull(); });
    user.setFavorite({QStringLiteral("star"), QStringLiteral("heart"), QStringLiteral("bolt")},
                     true);
    IconUpdater updater(library);
    HotKeyCenter hotKeys(std::make_unique<NullHotKeyBackend>());
    NullLoginItem loginItem;
    NullPaster paster;
    WindowManager windows(prefs, library,
                          SettingsServices{user, updater, hotKeys, loginItem, paster});

    const std::pair<AppearanceMode, QString> modes[] = {
        {AppearanceMode::light, QString()}, {AppearanceMode::dark, QStringLiteral("-dark")}};
    const std::pair<WindowManager::Tab, QString> tabs[] = {
        {WindowManager::Tab::general, QStringLiteral("settings-general")},
        {WindowManager::Tab::copy, QStringLiteral("settings-copy")},
        {WindowManager::Tab::about, QStringLiteral("settings-about")}};
    // A first showing lays the window out at its first size; the shots come
    // from the second.
    windows.showSettings();
    windows.settingsWindow()->resize(560, 900);
    settle();
    for (const auto& [mode, suffix] : modes) {
        prefs.setAppearance(mode);
        windows.applyAppearance();
        for (const auto& [tab, name] : tabs) {
            windows.showSettings(tab);
            QQuickWindow* window = windows.settingsWindow();
            // Tall enough to show a whole tab.
            window->resize(560, tab == WindowManager::Tab::about ? 520 : 900);
            save(window, QDir(outDir).filePath(name + suffix + QStringLiteral(".png")), out);
        }
        windows.showOnboarding();
        QQuickWindow* onboarding = windows.onboardingWindow();
        for (int step = 0; step < 3; ++step) {
            onboarding->setProperty("step", step);
            save(onboarding,
                 QDir(outDir).filePath(
                     QStringLiteral("onboarding-%1%2.png").arg(step + 1).arg(suffix)),
                 out);
        }
        onboarding->close();
    }
    return 0;
}
