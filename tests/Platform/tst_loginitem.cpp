#include "Platform/Null/NullLoginItem.h"
#include "Platform/Xdg/XdgAutostartLoginItem.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

// The keys of a desktop file's [Desktop Entry] group.
QMap<QString, QString> desktopEntry(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QMap<QString, QString> keys;
    bool inEntry = false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
        if (line.startsWith('['))
            inEntry = line == "[Desktop Entry]";
        else if (inEntry && line.contains('='))
            keys.insert(line.section('=', 0, 0), line.section('=', 1));
    }
    return keys;
}

} // namespace

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

    // Started at login as from the applications menu: the installed desktop
    // file's entry, with the executable's full path and no command.
    void entryIsTheDesktopFiles()
    {
        QVERIFY(autostart.setEnabled(true, "/usr/bin/pictray"));
        const auto written = desktopEntry(XdgAutostartLoginItem::entryPath());
        const auto installed = desktopEntry(PICTRAY_DESKTOP_FILE);
        QCOMPARE(installed.value("Exec"), QString("pictray"));
        QCOMPARE(written.value("Exec"), QString("\"/usr/bin/pictray\""));
        for (const QString& key : written.keys()) {
            if (key != "Exec" && !key.startsWith("X-"))
                QCOMPARE(written.value(key), installed.value(key));
        }
        QVERIFY(written.contains("Icon"));
        QVERIFY(autostart.setEnabled(false, "/usr/bin/pictray"));
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
