#include "Export/CopyTargets.h"
#include "Platform/HotKeyBackend.h"
#include "Platform/LoginItem.h"
#include "Platform/PlatformBackends.h"
#include "Platform/Portal/PortalHotKeyBackend.h"

#include <QTest>

// The choice outside X11; the X11 one runs under Xvfb in tst_hotkeys_x11,
// the portal's end to end in wayland_e2e.
class TestPlatformBackends : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("XKB_DEFAULT_LAYOUT", "us"); }

    void otherSessions_data()
    {
        QTest::addColumn<QString>("platform");
        QTest::addColumn<bool>("autostart");
        QTest::addColumn<bool>("wayland");
        QTest::newRow("wayland") << u"wayland"_qs << true << true;
        QTest::newRow("wayland-egl") << u"wayland-egl"_qs << true << true;
        QTest::newRow("offscreen") << u"offscreen"_qs << false << false;
    }
    void otherSessions()
    {
        QFETCH(QString, platform);
        QFETCH(bool, wayland);
        const PlatformBackends backends = PlatformBackends::forPlatform(platform);
        QVERIFY(!backends.paster->isTrusted());
        QVERIFY(backends.keyboardLayout);
        QCOMPARE(backends.session,
                 wayland ? WindowingSession::wayland() : WindowingSession::compositorPlaced());
        QTEST(backends.loginItem->isAvailable(), "autostart");
    }

    void qtPlatformFollowsTheSession_data()
    {
        QTest::addColumn<QByteArray>("sessionType");
        QTest::addColumn<QByteArray>("waylandDisplay");
        QTest::addColumn<QByteArray>("platform");
        QTest::newRow("wayland session") << "wayland"_qba
                                         << ""_qba
                                         << "wayland;xcb"_qba;
        QTest::newRow("unknown session, Wayland socket") << ""_qba
                                                         << "wayland-0"_qba
                                                         << "wayland;xcb"_qba;
        QTest::newRow("X11 with a nested compositor") << "x11"_qba
                                                      << "wayland-1"_qba
                                                      << ""_qba;
        QTest::newRow("tty") << "tty"_qba
                             << ""_qba
                             << ""_qba;
    }
    void qtPlatformFollowsTheSession()
    {
        QFETCH(QByteArray, sessionType);
        QFETCH(QByteArray, waylandDisplay);
        QTEST(PlatformBackends::preferredQtPlatform(sessionType, waylandDisplay), "platform");
    }

    void portalTriggersNameKeysym_data()
    {
        QTest::addColumn<KeyCombo>("combo");
        QTest::addColumn<QString>("trigger");
        QTest::newRow("Shift+Super+Return")
            << KeyCombo{36, KeyCombo::shiftFlag | KeyCombo::commandFlag} << u"SHIFT+LOGO+Return"_qs;
        QTest::newRow("F5") << KeyCombo{96, 0} << u"F5"_qs;
    }
    void portalTriggersNameKeysym()
    {
        QFETCH(KeyCombo, combo);
        QTEST(PortalHotKeyBackend::triggerText(combo), "trigger");
    }
};

QTEST_GUILESS_MAIN(TestPlatformBackends)
#include "tst_platformbackends.moc"
