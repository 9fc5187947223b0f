#include "App/Shell/Application.h"
#include "App/Shell/StatusItemController.h"
#include "AppWindows/WindowManager.h"
#include "Catalog/IconLibrary.h"
#include "Panel/PickerController.h"
#include "PictrayProcess.h"
#include "Platform/HotKeyBackend.h"
#include "Platform/HotKeyCenter.h"
#include "Platform/Xkb/XkbKeyboardLayout.h"
#include "State/Preferences.h"
#include "State/UserLibrary.h"
#include "TestData.h"

#include <QApplication>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Keeps what is grabbed now, by number.
struct GrabbedKeys : HotKeyBackend {
    QMap<quint32, KeyCombo>& live;
    explicit GrabbedKeys(QMap<quint32, KeyCombo>& keys) : live(keys) {}
    void installHandler(PressHandler) override {}
    bool registerHotKey(quint32 number, const KeyCombo& combo) override
    {
        live.insert(number, combo);
        return true;
    }
    void unregisterHotKey(quint32 number) override { live.remove(number); }
};

constexpr auto picker = quint32(HotKeyCenter::ID::picker);

} // namespace

// The running program follows each setting as soon as it changes.
class TestSettingReactions : public QObject {
    Q_OBJECT

    QTemporaryDir home;
    int runs = 0;
    QMap<quint32, KeyCombo> grabbed;
    std::unique_ptr<Application> app;
    Preferences* prefs = nullptr;
    std::optional<QColor> trayColor;

private slots:
    void init()
    {
        // Settings and downloads of this test only: a new folder each time, as
        // QSettings caches what it read by path.
        const QString folder = home.filePath(QString::number(++runs));
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            qputenv(name, (folder + u'/' + QString::fromLatin1(name)).toLocal8Bit());
        grabbed.clear();
        app = std::make_unique<Application>([this](SettingsStore&) {
            PlatformBackends backends = PlatformBackends::null();
            backends.hotKeys = std::make_unique<GrabbedKeys>(grabbed);
            backends.trayForeground = [this] { return trayColor; };
            backends.keyboardLayout = XkbKeyboardLayout::fromNames("us");
            return backends;
        });
        app->start();
        prefs = &app->preferences();
        prefs->setHasCompletedOnboarding(true);
    }
    void cleanup() { app.reset(); }

    // `pictray` commands working on this test's files, as from a terminal.
    static void shareFiles(PictrayProcess& pictray)
    {
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            pictray.environment().insert(QString::fromLatin1(name), qEnvironmentVariable(name));
    }

    void trayIconFollowsItsSetting()
    {
        app->statusItem().setTrayAvailable([] { return true; });
        prefs->setShowMenuBarIcon(false);
        QVERIFY(!app->statusItem().isShown());
        prefs->setShowMenuBarIcon(true);
        QVERIFY(app->statusItem().isShown());
    }

    void trayIconTakesTheTrayColourAndNamesTheShortcut()
    {
        StatusItemController& status = app->statusItem();
        status.setTrayAvailable([] { return true; });
        QCOMPARE(status.trayIcon()->toolTip(), u"Pictray — Ctrl+Alt+I"_qs);
        prefs->setPickerHotKey(KeyCombo{40, KeyCombo::controlFlag | KeyCombo::shiftFlag});
        QCOMPARE(status.trayIcon()->toolTip(), u"Pictray — Ctrl+Shift+K"_qs);
        prefs->setPickerHotKey(std::nullopt);
        QCOMPARE(status.trayIcon()->toolTip(), u"Pictray"_qs);

        // A tray that tells its colour late (it started after Pictray) gets it
        // once the icon shows there.
        trayColor = QColor(255, 128, 0);
        prefs->setShowMenuBarIcon(false);
        prefs->setShowMenuBarIcon(true);
        const QImage icon = status.trayIcon()->icon().pixmap(22).toImage();
        QColor ink;
        for (int y = 0; y < icon.height(); ++y)
            for (int x = 0; x < icon.width(); ++x)
                if (icon.pixelColor(x, y).alpha() == 255)
                    ink = icon.pixelColor(x, y);
        QCOMPARE(ink, *trayColor);
    }

    // The windows and the picker, also when the picker last opened in another appearance.
    void appearanceIsAppliedOnceTheChangeHasLanded()
    {
        prefs->setAppearance(AppearanceMode::light);
        app->picker().show();
        prefs->setAppearance(AppearanceMode::dark);
        QTRY_COMPARE(app->windowManager().appearance().mode(), AppearanceMode::dark);
        QVERIFY(QApplication::palette().window().color().lightness() < 128);
        QVERIFY(app->picker().appearance().dark());
        prefs->setAppearance(AppearanceMode::light);
        QTRY_COMPARE(app->windowManager().appearance().mode(), AppearanceMode::light);
        QVERIFY(QApplication::palette().window().color().lightness() > 128);
        QVERIFY(!app->picker().appearance().dark());
        app->picker().hide();
    }

    void recentsAreCutToALowerLimit()
    {
        UserLibrary& user = app->userLibrary();
        for (const char* name : {"heart", "star", "home", "bell"}) {
            UserLibrary::LastCopy copy;
            copy.name = QString::fromLatin1(name);
            user.recordCopy(copy);
        }
        QCOMPARE(user.recents().size(), 4);
        prefs->setRecentsLimit(2);
        QTRY_COMPARE(user.recents(), (QStringList{u"bell"_qs, u"home"_qs}));
    }

    void terminalChangesReachTheRunningProgram()
    {
        // Appearance and favorites from a terminal are driven end to end by
        // settings_e2e; a shortcut has to be grabbed again, which only this sees.
        PictrayProcess pictray;
        shareFiles(pictray);
        const KeyCombo other{KeyCombo::controlFlag | KeyCombo::shiftFlag, 0x22};
        QCOMPARE(pictray
                     .run({u"prefs"_qs, u"set"_qs, u"pickerHotKey"_qs,
                           QString::fromUtf8(other.toJson())})
                     .exitCode,
                 0);
        QTRY_COMPARE(grabbed.value(picker), other);
        prefs->setPickerHotKey(std::nullopt);
        QVERIFY(!grabbed.contains(picker));
    }

    // What `pictray update` leaves: a newer catalogue in the downloads.
    void aNewlyInstalledCatalogueIsShown()
    {
        IconLibrary& library = app->iconLibrary();
        QByteArray bytes = TestData::readFile(TestData::shippedCatalogue());
        const QByteArray head = "{\"version\":\"" + library.version().toUtf8() + '"';
        QVERIFY(bytes.startsWith(head));
        bytes.replace(0, head.size(), "{\"version\":\"99.0.0\"");
        QSaveFile file(library.sources().downloadedPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        QVERIFY(file.commit());
        QTRY_COMPARE(library.version(), u"99.0.0"_qs);
    }
};

QTEST_MAIN(TestSettingReactions)
#include "tst_settingreactions.moc"
