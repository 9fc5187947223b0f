#include "PictrayProcess.h"
#include "TestData.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
        QCOMPARE(lines.size(), 31);
        QCOMPARE(lines.first(), R"(pickerHotKey={"keyCode":34,"modifiers":786432})");
        QVERIFY(lines.contains("defaultStroke=2.0"));
        QCOMPARE(lines.last(), "showCategoryBar=true");
        QCOMPARE(pictray.run({"prefs"}).lines(), lines);
        QVERIFY(!QFile::exists(settingsFile(pictray)));
    }

    void prefsSetGetReset()
    {
        const PictrayProcess pictray;
        QCOMPARE(pictray.run({"prefs", "set", "recentsLimit", "3"}).exitCode, 0);
        QCOMPARE(pictray.run({"prefs", "get", "recentsLimit"}).out, "3\n");
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
        QTest::newRow("out of range") << QStringList{"set", "defaultSize", "-5"} << 1
                                      << QByteArray("expected a whole number from 1 to 4096");
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
        QCOMPARE(pictray.run({"favorites"}).lines(), (QStringList{"heart", "star", "star"}));
    }

    void favoritesImportRefusesOtherFiles()
    {
        const PictrayProcess pictray;
        const QString file = pictray.configDir() + "/import.json";
        writeFile(file, QByteArray("\x89PNG\r\n\x1a\n\0\0", 10));
        const auto result = pictray.run({"favorites", "import", file});
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(QString::fromUtf8(result.err),
                 u"pictray: That file isn’t a Pictray favorites export.\n"_qs);
        QVERIFY(pictray.run({"favorites"}).out.isEmpty());
    }

    // Each writer changes the list as the file holds it when its turn comes,
    // so no process overwrites another's favorite with an older list.
    void parallelWritersKeepEveryFavorite()
    {
        const PictrayProcess pictray;
        const QStringList names = pictray.run({"search", "arrow"}).lines().mid(0, 50);
        QCOMPARE(names.size(), 50);
        std::vector<std::unique_ptr<QProcess>> writers;
        for (const QString& name : names)
            writers.push_back(pictray.start({"favorites", "add", name}));
        for (const auto& writer : writers) {
            QTRY_COMPARE_WITH_TIMEOUT(writer->state(), QProcess::NotRunning, 60000);
            QCOMPARE(writer->exitCode(), 0);
        }
        QStringList favorites = pictray.run({"favorites", "list"}).lines();
        QCOMPARE(favorites.size(), 50);
        favorites.sort();
        QStringList expected = names;
        expected.sort();
        QCOMPARE(favorites, expected);
    }

    // A failed write says so with the system's reason and claims nothing else.
    void writeFailuresAreReported()
    {
        PictrayProcess pictray;
        const QString notAFolder = pictray.dataDir() + "/file";
        writeFile(notAFolder, "x");
        pictray.environment().insert("XDG_CONFIG_HOME", notAFolder);
        for (const QStringList& args :
             {QStringList{"favorites", "add", "home"}, QStringList{"favorites", "import", "-"}}) {
            const auto result = pictray.run(args, R"(["home"])");
            QCOMPARE(result.exitCode, 1);
            QVERIFY2(result.err.contains(": Not a directory"), result.err.constData());
            QVERIFY(result.out.isEmpty());
        }
    }

    void aMalformedSettingsLineDoesNotFailWrites()
    {
        const PictrayProcess pictray;
        writeFile(settingsFile(pictray), "[General]\nfavorites=star\n[unterminated\n");
        const auto result = pictray.run({"favorites", "add", "home"});
        QVERIFY2(result.err.isEmpty(), result.err.constData());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(pictray.run({"favorites"}).lines(), (QStringList{"star", "home"}));
        QCOMPARE(readFile(settingsFile(pictray) + ".damaged"),
                 "[General]\nfavorites=star\n[unterminated\n");
    }

    // Replacing is for regular files: a device or a FIFO at the output path
    // is written in place and stays what it was.
    void exportsWriteDevicesInPlace_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("favorites") << QStringList{"favorites", "export"} << QByteArray("\"app\"");
        QTest::newRow("icon") << QStringList{"export", "home", "-o"} << QByteArray("<svg");
    }
    void exportsWriteDevicesInPlace()
    {
        QFETCH(QStringList, args);
        QFETCH(QByteArray, content);
        const PictrayProcess pictray;
        QDir().mkpath(pictray.configDir());

        const QString fifo = pictray.configDir() + "/fifo";
        QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
        // Open for reading first, so the writer neither blocks nor fails;
        // the export fits the pipe's buffer.
        const int reader = ::open(QFile::encodeName(fifo).constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader >= 0);
        QCOMPARE(pictray.run(args + QStringList{fifo}).exitCode, 0);
        QByteArray received(65536, '\0');
        const auto size = ::read(reader, received.data(), received.size());
        ::close(reader);
        QVERIFY(size > 0 && received.left(size).contains(content));
        QVERIFY(QFileInfo(fifo).exists() && !QFileInfo(fifo).isFile());
    }

    void exportToAFullStandardOutputFails()
    {
        PictrayProcess pictray;
        QProcess process;
        process.setProcessEnvironment(pictray.environment());
        process.setStandardOutputFile("/dev/full");
        process.start(qEnvironmentVariable("PICTRAY_BINARY"), {"favorites", "export", "-"});
        QTRY_COMPARE(process.state(), QProcess::NotRunning);
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(process.readAllStandardError().contains("No space left on device"));
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
             {QStringList{"prefs", "get", "defaultColor"}, QStringList{"favorites", "list"},
              QStringList{"info"}, QStringList{"near", "arrowz"}, QStringList{"--help"}})
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
