#include "Export/CopyTargets.h"
#include "Platform/HotKeyBackend.h"
#include "Platform/LoginItem.h"
#include "Platform/PlatformBackends.h"

#include <QTest>

// The choice outside X11; the X11 one runs under Xvfb in tst_hotkeys_x11.
class TestPlatformBackends : public QObject {
    Q_OBJECT

private slots:
    void otherSessions_data()
    {
        QTest::addColumn<QString>("platform");
        QTest::addColumn<bool>("autostart");
        QTest::newRow("wayland") << u"wayland"_qs << true;
        QTest::newRow("wayland-egl") << u"wayland-egl"_qs << true;
        QTest::newRow("offscreen") << u"offscreen"_qs << false;
    }
    void otherSessions()
    {
        QFETCH(QString, platform);
        QFETCH(bool, autostart);
        const PlatformBackends backends = PlatformBackends::forPlatform(platform);
        QVERIFY(!backends.hotKeys->registerHotKey(1, KeyCombo{34, KeyCombo::controlFlag}));
        QVERIFY(!backends.paster->isTrusted());
        QVERIFY(backends.keyboardLayout);
        QCOMPARE(backends.session, WindowingSession::compositorPlaced());
        QCOMPARE(backends.loginItem->isAvailable(), autostart);
    }
};

QTEST_GUILESS_MAIN(TestPlatformBackends)
#include "tst_platformbackends.moc"
