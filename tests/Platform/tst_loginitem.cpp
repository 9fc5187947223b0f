#include "Platform/Null/NullLoginItem.h"
#include "Platform/Xdg/XdgAutostartLoginItem.h"

#include <QTemporaryDir>
#include <QtTest>

class TestLoginItem : public QObject {
    Q_OBJECT

    QTemporaryDir config;
    XdgAutostartLoginItem autostart;

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
        QCOMPARE(XdgAutostartLoginItem::entryPath(),
                 config.filePath("autostart/app.pictray.Pictray.desktop"));
        QVERIFY(autostart.setEnabled(true, executable));
        QVERIFY(autostart.isEnabled());
        QFile file(XdgAutostartLoginItem::entryPath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
        QCOMPARE(lines.first(), QString("[Desktop Entry]"));
        QVERIFY2(lines.contains(exec), qPrintable(lines.join(" | ")));
        QVERIFY(autostart.setEnabled(false, executable));
        QVERIFY(!autostart.isEnabled());
        QVERIFY(autostart.setEnabled(false, executable)); // already off
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
        QVERIFY(!autostart.setEnabled(true, "/usr/bin/pictray"));
        QVERIFY(!autostart.isEnabled());
        blocker.remove();
    }

    void nullItemStaysOff()
    {
        NullLoginItem none;
        QVERIFY(!none.isAvailable());
        QVERIFY(!none.setEnabled(true, "/usr/bin/pictray"));
        QVERIFY(none.setEnabled(false, "/usr/bin/pictray"));
        QVERIFY(!none.isEnabled());
        QVERIFY(!QFile::exists(XdgAutostartLoginItem::entryPath()));
    }
};

QTEST_GUILESS_MAIN(TestLoginItem)
#include "tst_loginitem.moc"
