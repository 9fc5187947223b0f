#include "PictrayProcess.h"
#include "TestData.h"

#include <QDir>
#include <QFile>
#include <QTest>

using TestData::readFile;
using TestData::writeFile;

class TestCliState : public QObject {
    Q_OBJECT

    QString settingsFile(const PictrayProcess& pictray) const
    {
        return pictray.configDir() + "/Pictray/Pictray.conf";
    }

private slots:
    void prefsListsDefaultsWithoutWriting()
    {
        const PictrayProcess pictray;
        const auto result = pictray.run({"prefs", "list"});
        QCOMPARE(result.exitCode, 0);
        const QStringList lines = result.lines();
        QCOMPARE(lines.size(), 30);
        QCOMPARE(lines.first(), R"(pickerHotKey={"keyCode":34,"modifiers":786432})");
        QVERIFY(lines.contains("defaultStroke=2.0"));
        QCOMPARE(lines.last(), "showCategoryBar=true");
        QCOMPARE(pictray.run({"prefs"}).lines(), lines);
        QVERIFY(!QFile::exists(settingsFile(pictray)));
    }

    void prefsSetGetReset()
    {
        const PictrayProcess pictray;
        QCOMPARE(pictray.run({"prefs", "set", "recentsLimit", "-3"}).exitCode, 0);
        QCOMPARE(pictray.run({"prefs", "get", "recentsLimit"}).out, "-3\n");
        QCOMPARE(pictray.run({"prefs", "set", "pickerHotKey", ""}).exitCode, 0);
        QCOMPARE(pictray.run({"prefs", "get", "pickerHotKey"}).out, "\n");
        QVERIFY(readFile(settingsFile(pictray)).contains("pickerHotKey=@ByteArray()"));

        QCOMPARE(pictray.run({"prefs", "reset", "pickerHotKey"}).exitCode, 0);
        QCOMPARE(pictray.run({"prefs", "get", "pickerHotKey"}).out,
                 "{\"keyCode\":34,\"modifiers\":786432}\n");
        QCOMPARE(pictray.run({"prefs", "reset", "recentsLimit"}).exitCode, 0);
        QCOMPARE(pictray.run({"prefs", "get", "recentsLimit"}).out, "24\n");
        QVERIFY(!readFile(settingsFile(pictray)).contains("recentsLimit"));
    }

    void prefsRefusals_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("not a number") << QStringList{"set", "recentsLimit", "abc"} << 1
                                      << QByteArray("expected a whole number");
        QTest::newRow("unknown key")
            << QStringList{"get", "colour"} << 2 << QByteArray("unknown setting 'colour'");
        QTest::newRow("colour that is markup")
            << QStringList{"set", "defaultColor", "\"><script>x</script>"} << 1
            << QByteArray("expected currentColor or a hexadecimal colour");
        QTest::newRow("missing value")
            << QStringList{"set", "png3x"} << 2 << QByteArray("prefs takes");
    }
    void prefsRefusals()
    {
        QFETCH(QStringList, args);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, message);
        const PictrayProcess pictray;
        const auto result = pictray.run(QStringList{"prefs"} + args);
        QCOMPARE(result.exitCode, exitCode);
        QVERIFY2(result.err.contains(message), result.err.constData());
        QVERIFY(!QFile::exists(settingsFile(pictray)));
    }

    void favoritesAddRemoveExportImport()
    {
        const PictrayProcess pictray;
        QCOMPARE(pictray.run({"favorites", "add", "star", "heart"}).exitCode, 0);
        const auto unknown = pictray.run({"favorites", "add", "bell", "no-such-icon"});
        QCOMPARE(unknown.exitCode, 1);
        QVERIFY(unknown.err.contains("no-such-icon"));
        QCOMPARE(pictray.run({"favorites"}).lines(), (QStringList{"star", "heart"}));

        const QString exported = pictray.configDir() + "/Pictray Favorites.json";
        QCOMPARE(pictray.run({"favorites", "export", exported}).exitCode, 0);
        QVERIFY(readFile(exported).startsWith("{\n    \"app\": \"Pictray\",\n    \"favorites\""));
        QCOMPARE(pictray.run({"favorites", "remove", "star"}).exitCode, 0);
        QCOMPARE(pictray.run({"favorites", "list"}).lines(), QStringList{"heart"});

        const QString file = pictray.configDir() + "/import.json";
        writeFile(file, R"(["star", "star", "heart", "no-such-icon"])");
        auto result = pictray.run({"favorites", "import", file});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, "Imported 2 new favorites.\n");
        QCOMPARE(pictray.run({"favorites", "import", file}).out, "Imported 0 new favorites.\n");
        QCOMPARE(pictray.run({"favorites"}).lines(), (QStringList{"heart", "star", "star"}));
    }

    void favoritesImportRefusesOtherFiles()
    {
        const PictrayProcess pictray;
        const QString file = pictray.configDir() + "/import.json";
        writeFile(file, QByteArray("\x89PNG\r\n\x1a\n\0\0", 10));
        for (const QString& path : {file, QString("/dev/zero")}) {
            const auto result = pictray.run({"favorites", "import", path});
            QCOMPARE(result.exitCode, 1);
            QCOMPARE(QString::fromUtf8(result.err),
                     QString::fromUtf8("pictray: That file isn’t an Pictray favorites export.\n"));
        }
        QVERIFY(pictray.run({"favorites"}).out.isEmpty());
    }

    void recentsFollowTheLimit()
    {
        const PictrayProcess pictray;
        QVERIFY(pictray.run({"recents"}).out.isEmpty());
        writeFile(settingsFile(pictray), "[General]\nrecents=home, star, bell\n");
        QCOMPARE(pictray.run({"recents"}).lines(), (QStringList{"home", "star", "bell"}));
        QCOMPARE(pictray.run({"prefs", "set", "recentsLimit", "2"}).exitCode, 0);
        QCOMPARE(pictray.run({"recents"}).lines(), (QStringList{"home", "star"}));
    }

    // What prints text ends its last line, so a shell prompt or the next
    // command's output never runs on; only export writes bare bytes.
    void printedTextEndsWithALineFeed_data()
    {
        QTest::addColumn<QStringList>("args");
        for (const QStringList& args :
             {QStringList{"prefs", "list"}, QStringList{"prefs", "get", "defaultColor"},
              QStringList{"favorites", "list"}, QStringList{"recents"}, QStringList{"info"},
              QStringList{"search", "arrow"}, QStringList{"near", "arrowz"},
              QStringList{"--version"}, QStringList{"--help"}})
            QTest::addRow("%s", qPrintable(args.join(u' '))) << args;
    }
    void printedTextEndsWithALineFeed()
    {
        QFETCH(QStringList, args);
        const PictrayProcess pictray;
        writeFile(settingsFile(pictray), "[General]\nrecents=home, star\nfavorites=bell\n");
        const auto result = pictray.run(args);
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.lines().size() >= 1);
        QVERIFY2(result.out.endsWith('\n') && !result.out.endsWith("\n\n"),
                 result.out.right(40).constData());
    }
};

QTEST_GUILESS_MAIN(TestCliState)
#include "tst_cli_state.moc"
