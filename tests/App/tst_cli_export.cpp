#include "PictrayProcess.h"

#include <QImage>
#include <QTest>

class TestCliExport : public QObject {
    Q_OBJECT

private slots:
    void defaultsComeFromThePreferences()
    {
        PictrayProcess pictray;
        // The program's defaults: React/TSX, optimized, with the class template.
        auto result = pictray.run({"export", "plus"});
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.out.startsWith(
            "import type { SVGProps } from \"react\";\n\nexport function IconPlus("));
        QVERIFY(result.out.endsWith("}")); // exactly the snippet, no added line feed
        QVERIFY(result.out.contains("className=\"icon icon-tabler\""));

        // Stored settings apply; --set overrides them for one run only.
        QCOMPARE(pictray.run({"prefs", "set", "defaultFormat", "blade"}).exitCode, 0);
        QCOMPARE(pictray.run({"export", "plus", "--stroke", "1.5", "--color", "#f00"}).out,
                 QByteArray(
                     "<x-tabler-plus\n  class=\"w-6 h-6 text-[#f00]\"\n  stroke-width=\"1.5\" />"));
        QCOMPARE(
            pictray
                .run({"export", "plus", "--set", "bladePrefix=x-icon-", "--set", "ariaHidden=true"})
                .out,
            QByteArray("<x-icon-plus\n  class=\"w-6 h-6\"\n  aria-hidden=\"true\" />"));
        QCOMPARE(pictray.run({"prefs", "get", "bladePrefix"}).out, QByteArray("x-tabler-\n"));
    }

    void setReadsWithTheFallbackRules()
    {
        const PictrayProcess pictray;
        // Only the exact raw value "jsx" selects JSX; anything else reads as TSX.
        const auto jsx = pictray.run({"export", "plus", "--set", "reactLanguage=jsx"});
        QVERIFY(jsx.out.startsWith("export function IconPlus(props) {"));
        const auto tsx = pictray.run({"export", "plus", "--set", "reactLanguage=JSX"});
        QVERIFY(tsx.out.startsWith("import type"));
        // An unknown default format reads as React.
        QVERIFY(pictray.run({"export", "plus", "--set", "defaultFormat=gif"})
                    .out.startsWith("import type"));
    }

    void filledFallsBackToOutline()
    {
        const PictrayProcess pictray;
        QVERIFY(pictray.run({"export", "home", "--format", "svg", "--style", "filled"})
                    .out.contains("fill=\"currentColor\""));
        const auto outlineOnly =
            pictray.run({"export", "abacus", "--format", "svg", "--style", "filled"});
        QCOMPARE(outlineOnly.exitCode, 0);
        QVERIFY(outlineOnly.out.contains("stroke-width=\"2\""));
    }

    void writesFilesAndDataURIs()
    {
        const PictrayProcess pictray;
        const QString path = pictray.dataDir() + "/plus.svg";
        QCOMPARE(pictray.run({"export", "plus", "--format", "tailwind", "-o", path}).exitCode, 0);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().startsWith("<svg\n  xmlns="));
        QVERIFY(pictray.run({"export", "plus", "--format", "dataURI"})
                    .out.startsWith("data:image/svg+xml,%3Csvg%20"));
    }

    void pngHasTheExactPixelSize()
    {
        const PictrayProcess pictray;
        auto result = pictray.run({"export", "star", "--format", "png2"});
        QCOMPARE(result.exitCode, 0);
        QImage image = QImage::fromData(result.out, "PNG");
        QCOMPARE(image.size(), QSize(48, 48));
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);

        const QString path = pictray.dataDir() + "/star.png";
        result =
            pictray.run({"export", "star", "--format", "png3", "--size", "16", "--color", "#ff0000",
                         "--set", "pngPadding=2", "--set", "pngBackground=white", "-o", path});
        QCOMPARE(result.exitCode, 0);
        image = QImage(path);
        QCOMPARE(image.size(), QSize(60, 60));
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white)); // the padding is filled too
        bool red = false;
        for (int y = 0; y < image.height() && !red; ++y)
            for (int x = 0; x < image.width() && !red; ++x)
                red = image.pixelColor(x, y) == QColor(Qt::red);
        QVERIFY(red);
    }

    void errors_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("unknown icon")
            << QStringList{"export", "umbrellas"} << 1 << QByteArray("umbrella");
        QTest::newRow("typo names the icon first")
            << QStringList{"export", "arow-left"} << 1 << QByteArray("close names: arrow-left,");
        QTest::newRow("unknown format")
            << QStringList{"export", "plus", "--format", "gif"} << 2 << QByteArray("--format");
        QTest::newRow("unknown key")
            << QStringList{"export", "plus", "--set", "colour=red"} << 2 << QByteArray("--set");
        QTest::newRow("colour that is markup")
            << QStringList{"export", "plus", "--color", "red\" onload=\"x"} << 2
            << QByteArray("--color");
        QTest::newRow("two names")
            << QStringList{"export", "plus", "minus"} << 2 << QByteArray("one icon");
    }
    void errors()
    {
        QFETCH(QStringList, args);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, message);
        const auto result = PictrayProcess().run(args);
        QCOMPARE(result.exitCode, exitCode);
        QVERIFY(result.out.isEmpty());
        QVERIFY2(result.err.contains(message), result.err.constData());
    }
};

QTEST_GUILESS_MAIN(TestCliExport)
#include "tst_cli_export.moc"
