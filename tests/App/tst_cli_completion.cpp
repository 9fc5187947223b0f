#include "PictrayProcess.h"
#include "TestData.h"

#include <QTest>

// `pictray complete SHELL WORD...` answers what completes the last word; the
// usage text and the man page come from the same table.
class TestCliCompletion : public QObject {
    Q_OBJECT

    PictrayProcess pictray;

    QStringList complete(const QStringList& words, const QString& shell = "bash")
    {
        const auto result = pictray.run(QStringList{"complete", shell} + words);
        return result.exitCode == 0 ? result.lines()
                                    : QStringList{"exit " + QString::number(result.exitCode)};
    }

private slots:
    void candidates_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QStringList>("expected"); // exactly, in this order
        // Commands, options and setting names are also completed through
        // bash's own completion in shell_completion.sh, which sorts.
        QTest::newRow("hidden commands are not offered") << QStringList{"comp"} << QStringList{};
        QTest::newRow("action") << QStringList{"prefs", "s"} << QStringList{"set"};
        QTest::newRow("setting values in their order")
            << QStringList{"prefs", "set", "appearance", ""}
            << QStringList{"system", "light", "dark"};
        QTest::newRow("free setting")
            << QStringList{"prefs", "set", "defaultColor", ""} << QStringList{};
        QTest::newRow("no third operand")
            << QStringList{"prefs", "get", "png3x", ""} << QStringList{};
        QTest::newRow("option value")
            << QStringList{"export", "home", "--style", ""} << QStringList{"outline", "filled"};
        QTest::newRow("option value after =")
            << QStringList{"export", "home", "--format=png"}
            << QStringList{"--format=png1", "--format=png2", "--format=png3"};
        QTest::newRow("given options are not offered again")
            << QStringList{"search", "--style", "filled", "--"} << QStringList{"--in"};
        QTest::newRow("assignment key")
            << QStringList{"export", "x", "--set", "vueS"} << QStringList{"vueStyle="};
        QTest::newRow("assignment value") << QStringList{"export", "x", "--set", "vueStyle="}
                                          << QStringList{"vueStyle=sfc", "vueStyle=template"};
        QTest::newRow("tabs") << QStringList{"search", "--in", ""}
                              << QStringList{"all", "favorites", "recents", "category:"};
        QTest::newRow("category with a space") << QStringList{"search", "--in", "category:Version"}
                                               << QStringList{"category:Version\\ control"};
        QTest::newRow("file") << QStringList{"export", "home", "-o", ""} << QStringList{":files"};
        QTest::newRow("folder") << QStringList{"catalogue", "build", "--from", ""}
                                << QStringList{":dirs"};
        QTest::newRow("unknown command") << QStringList{"frobnicate", ""} << QStringList{};
        // Icon names as the first word shell_completion.sh completes; here after
        // options and after another name.
        QTest::newRow("icon after options")
            << QStringList{"export", "--format", "svg", "heart-broke"}
            << QStringList{"heart-broken"};
        QTest::newRow("icon after an icon")
            << QStringList{"favorites", "add", "home", "heart-broke"}
            << QStringList{"heart-broken"};
    }

    void candidates()
    {
        QFETCH(QStringList, words);
        QTEST(complete(words), "expected");
    }

    void favoritesToRemove()
    {
        QCOMPARE(pictray.run({"favorites", "add", "star", "heart"}).exitCode, 0);
        QCOMPARE(complete({"favorites", "remove", ""}), (QStringList{"star", "heart"}));
    }

    void descriptionsForZshAndFish()
    {
        QCOMPARE(complete({"expo"}, "fish"), QStringList{"export\tWrite one icon in one format"});
        QCOMPARE(complete({"expo"}, "zsh"), complete({"expo"}, "fish"));
        QCOMPARE(pictray.run({"complete", "tcsh", "x"}).exitCode, 2);
    }

    // The README's command summary is the usage text, line for line.
    void readmeShowsTheUsage()
    {
        const QString readme = QString::fromUtf8(TestData::readFile(PICTRAY_README));
        const qsizetype section = readme.indexOf("## Command line\n\n```\n");
        QVERIFY(section >= 0);
        const qsizetype start = readme.indexOf('\n', readme.indexOf("```", section)) + 1;
        const QStringList documented =
            readme.mid(start, readme.indexOf("```", start) - start).split('\n', Qt::SkipEmptyParts);
        QStringList usage;
        for (const QString& line : pictray.run({"--help"}).lines()) {
            if (line.startsWith("  pictray "))
                usage.append(line.mid(2));
        }
        QCOMPARE(documented.size(), usage.size());
        for (qsizetype i = 0; i < usage.size(); ++i)
            QCOMPARE(documented[i].simplified(), usage[i]);
    }

    void manPageListsEveryCommand()
    {
        const QString page = QString::fromUtf8(pictray.run({"manpage"}).out);
        QVERIFY(page.startsWith(".TH PICTRAY 1 "));
        for (const QString& line : pictray.run({"--help"}).lines()) {
            if (line.startsWith("  pictray "))
                QVERIFY2(page.contains(".B pictray\n" + QString(line.mid(10)).replace('-', "\\-") +
                                       '\n'),
                         qPrintable(line));
        }
    }
};

QTEST_GUILESS_MAIN(TestCliCompletion)
#include "tst_cli_completion.moc"
