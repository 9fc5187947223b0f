#include "Catalog/CatalogueCodec.h"
#include "FixtureHttpServer.h"
#include "PictrayProcess.h"
#include "TestData.h"

#include <QDir>
#include <QTest>

using TestData::writeFile;

class TestCliCatalogue : public QObject {
    Q_OBJECT

private slots:
    void infoNamesANewerDownload()
    {
        const PictrayProcess pictray;
        const QString path = pictray.dataDir() + "/Pictray/tabler-icons.json";
        writeFile(
            path,
            R"({"version":"99.0.0","icons":[{"n":"a","c":"X","t":[],"o":["M1 1"],"f":["M1 1"]}]})");
        const auto result = pictray.run({"info"});
        QCOMPARE(result.lines(),
                 (QStringList{"version: 99.0.0", "icons: 1", "outline: 1", "filled: 1",
                              "categories: 1", "source: downloaded " + path}));
    }

    void infoNamesADamagedDownload()
    {
        const PictrayProcess pictray;
        const QString path = pictray.dataDir() + "/Pictray/tabler-icons.json";
        writeFile(path, R"({"version":"99.0.0","icons":[{"n":"a"}]})");
        QStringList lines = pictray.run({"info"}).lines();
        QCOMPARE(lines.size(), 7);
        QCOMPARE(lines[5], QStringLiteral("source: shipped"));
        QVERIFY2(lines[6].startsWith("problem: " + path + " is damaged (") &&
                     lines[6].endsWith("moved to " + path + ".damaged"),
                 qPrintable(lines[6]));
        QCOMPARE(pictray.run({"info"}).lines().size(), 6);
    }

    void searchAndNear()
    {
        const PictrayProcess pictray;
        auto result = pictray.run({"search", "arrow", "left"});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.lines().first(), QStringLiteral("arrow-left"));

        result = pictray.run({"search", "qqqzzz"});
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.out.isEmpty());

        result = pictray.run({"near", "--limit", "2", "umbrellas"});
        QCOMPARE(result.lines().first(), QStringLiteral("words: umbre"));
        QCOMPARE(result.lines().size(), 3);

        result = pictray.run({"near", "xy"});
        QCOMPARE(result.out, QByteArray("words: \n"));
    }

    // What a tab lists is the picker model's (tst_pickermodel): here the
    // options reach it.
    void searchWithinTheTabs()
    {
        const PictrayProcess pictray;
        QCOMPARE(pictray.run({"favorites", "add", "star", "home", "abacus"}).exitCode, 0);
        // abacus has no filled form.
        QCOMPARE(pictray.run({"search", "--in", "favorites", "--style", "filled"}).lines(),
                 (QStringList{"star", "home"}));
        const QStringList arrows =
            pictray.run({"search", "--in", "category:Arrows", "left"}).lines();
        QVERIFY(!arrows.isEmpty() &&
                arrows.size() < pictray.run({"search", "left"}).lines().size());
        QVERIFY(pictray.run({"search", "--in", "category:No such"}).out.isEmpty());
        QCOMPARE(pictray.run({"search", "--in", "starred", "x"}).exitCode, 2);
    }

    void usageErrors_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::newRow("unknown command") << QStringList{"frobnicate"};
        QTest::newRow("unknown option") << QStringList{"search", "--colour", "x"};
        QTest::newRow("bad style") << QStringList{"search", "--style", "bold", "x"};
        QTest::newRow("unknown tab") << QStringList{"show", "--tab", "nowhere"};
    }
    void usageErrors()
    {
        QFETCH(QStringList, args);
        const auto result = PictrayProcess().run(args);
        QCOMPARE(result.exitCode, 2);
        QVERIFY(result.out.isEmpty());
        QVERIFY(result.err.startsWith("pictray: "));
        QVERIFY(result.err.contains("Usage: pictray"));
    }

    void catalogueBuild()
    {
        const PictrayProcess pictray;
        const QString package = pictray.dataDir() + "/package";
        writeFile(package + "/package.json", R"({"name":"@tabler/icons","version":"3.60.1"})");
        writeFile(package + "/icons.json", R"({"b":{"category":"C","tags":[null,"t",4]},"a":{}})");
        writeFile(package + "/tabler-nodes-outline.json",
                  R"({"a":[["path",{"d":"M1 1"}]],"b":[]})");
        writeFile(package + "/tabler-nodes-filled.json", R"({"b":[["path",{"d":"M2 2"}]]})");
        const QString out = pictray.dataDir() + "/out.json";

        // What the conversion writes, byte for byte, is tst_packageconverter's.
        auto result = pictray.run({"catalogue", "build", "--from", package, "-o", out});
        QCOMPARE(result.exitCode, 0);
        auto file = CatalogueCodec::decode(TestData::readFile(out));
        QVERIFY(file && file->icons.size() == 2);
        QCOMPARE(file->version, QStringLiteral("3.60.1"));
        result =
            pictray.run({"catalogue", "build", "--from", package, "--version", "1.2", "-o", out});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(CatalogueCodec::decode(TestData::readFile(out))->version, QStringLiteral("1.2"));

        QFile::remove(package + "/tabler-nodes-filled.json");
        result = pictray.run({"catalogue", "build", "--from", package, "-o", out});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.err.contains("tabler-nodes-filled.json"));
    }

    void updateRunsOneCheck()
    {
        FixtureHttpServer server;
        PictrayProcess pictray;
        pictray.environment().insert("PICTRAY_LATEST_URL", server.url("/latest").toString());
        pictray.environment().insert("PICTRAY_CDN_URL", server.url().toString());
        const QString base = "/npm/@tabler/icons@99.1.0/";
        server.serve("/latest", R"({"version":"99.1.0"})");
        server.serve(base + "icons.json", R"({"x":{"category":"C"}})");
        server.serve(base + "tabler-nodes-outline.json", R"({"x":[["path",{"d":"M1 1"}]]})");
        server.serve(base + "tabler-nodes-filled.json", "{}");
        // A one-icon release replaces only a set about as small.
        writeFile(pictray.dataDir() + "/Pictray/tabler-icons.json",
                  R"({"version":"99.0.0","icons":[{"n":"a","c":"X","t":[],"o":["M1 1"]}]})");

        auto result = pictray.run({"update"});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(QString::fromUtf8(result.out),
                 QString::fromUtf8(
                     "Downloading Tabler Icons 99.1.0…\nUpdated to Tabler Icons 99.1.0.\n"));
        QCOMPARE(pictray.run({"info"}).lines().first(), QStringLiteral("version: 99.1.0"));

        result = pictray.run({"update"});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, QByteArray("You have the newest icons.\n"));

        server.serve("/latest", {503, "busy"});
        result = pictray.run({"update"});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(QString::fromUtf8(result.out).startsWith(QString::fromUtf8("Couldn’t update: ")));
    }
};

QTEST_GUILESS_MAIN(TestCliCatalogue)
#include "tst_cli_catalogue.moc"
