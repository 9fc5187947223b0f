#include "Platform/LaunchAtLogin.h"

#include <QTemporaryDir>
#include <QtTest>

class TestLaunchAtLogin : public QObject {
    Q_OBJECT

    QTemporaryDir config;

private slots:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", config.path().toUtf8()); }

    void entry_data()
    {
        QTest::addColumn<QString>("executable");
        QTest::addColumn<QString>("exec");
        QTest::newRow("plain") << "/usr/bin/pictray"
                               << "Exec=\"/usr/bin/pictray\"";
        QTest::newRow("spaces and quotes") << "/opt/My Apps/pic\"tray"
                                           << "Exec=\"/opt/My Apps/pic\\\"tray\"";
    }

    void entry()
    {
        QFETCH(QString, executable);
        QFETCH(QString, exec);
        QCOMPARE(LaunchAtLogin::entryPath(), config.filePath("autostart/pictray.desktop"));
        QVERIFY(LaunchAtLogin::set(true, executable));
        QVERIFY(LaunchAtLogin::isEnabled());
        QFile file(LaunchAtLogin::entryPath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
        QCOMPARE(lines.first(), QString("[Desktop Entry]"));
        QVERIFY2(lines.contains(exec), qPrintable(lines.join(" | ")));
        QVERIFY(LaunchAtLogin::set(false, executable));
        QVERIFY(!LaunchAtLogin::isEnabled());
        QVERIFY(LaunchAtLogin::set(false, executable)); // already off
    }

    void failureIsLogged()
    {
        // The autostart folder's place is taken by a file.
        QDir(config.filePath("autostart")).removeRecursively();
        QFile blocker(config.filePath("autostart"));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("^Pictray: launch at login change failed: "));
        QVERIFY(!LaunchAtLogin::set(true, "/usr/bin/pictray"));
        QVERIFY(!LaunchAtLogin::isEnabled());
        blocker.remove();
    }
};

QTEST_GUILESS_MAIN(TestLaunchAtLogin)
#include "tst_launchatlogin.moc"
