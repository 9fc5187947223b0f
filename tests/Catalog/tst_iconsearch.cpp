#include "Catalog/IconLibrary.h"
#include "TestData.h"

#include <QTest>

namespace {

Icon icon(const char* name, QStringList tags = {}, const char* category = "")
{
    return Icon(QString::fromUtf8(name), QString::fromUtf8(category), std::move(tags), PathList{},
                {});
}

// Names chosen so each scoring rule decides one place.
const IconList fixture{
    icon("arrow-left-circle"),                      // 80 + 70 for "arrow left"
    icon("circle-arrow-left", {"Direction"}),       // 70 + 70
    icon("sparrow", {"bird"}),                      // 50 for "arrow"
    icon("compass", {"direction", "arrow", "nav"}), // tag equal
    icon("signpost", {"arrows", "road"}),           // tag prefix
    icon("map", {"treasure-arrowhead"}),            // tag contains
    icon("arrow-left"),                             // exact joined name
    icon("arrow"),                                  // exact word
    icon("Umbrella", {"rain"}),
};

} // namespace

using TestData::names;

class TestIconSearch : public QObject {
    Q_OBJECT

private slots:
    void ranks_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("rules in order")
            << "arrow"
            << QStringList{"arrow",   "arrow-left-circle", "arrow-left", "circle-arrow-left",
                           "sparrow", "compass",           "signpost",   "map"};
        QTest::newRow("exact joined name first")
            << "arrow left" << QStringList{"arrow-left", "arrow-left-circle", "circle-arrow-left"};
        QTest::newRow("comma splits like space, case folded once")
            << "ARROW,Left" << QStringList{"arrow-left", "arrow-left-circle", "circle-arrow-left"};
        QTest::newRow("hyphenated word") << "left-c" << QStringList{"arrow-left-circle"};
        QTest::newRow("tags compared lower-cased")
            << "direction" << QStringList{"circle-arrow-left", "compass"};
        QTest::newRow("upper-case name matched lower") << "umbrella" << QStringList{"Umbrella"};
        QTest::newRow("one word missing drops the icon") << "arrow zebra" << QStringList{};
        QTest::newRow("nothing") << "zzz" << QStringList{};
    }
    void ranks()
    {
        QFETCH(QString, query);
        QTEST(names(IconSearch(fixture).search(query, fixture)), "expected");
    }

    // One letter and two-letter words take their own fast paths; the ranks
    // must not change. Long tags put a match past the first 16 bytes.
    void shortWordsRankByTheSameRules()
    {
        const IconList list{
            icon("z", {"long-description-that-ends-with-q"}),
            icon("qz-x"),
            icon("x-qz"),
            icon("xqz"),
            icon("tag-only", {"q"}),
            icon("tag-start", {"qz", "a-very-long-tag-with-nothing"}),
            icon("tag-inside", {"a-very-long-tag-without-it", "and-then-one-with-xqz"}),
            icon("q"),
            icon("none", {"zq"}),
        };
        QCOMPARE(names(IconSearch(list).search(u"q", list)),
                 (QStringList{"q", "qz-x", "x-qz", "xqz", "tag-only", "tag-start", "z",
                              "tag-inside", "none"}));
        QCOMPARE(names(IconSearch(list).search(u"qz", list)),
                 (QStringList{"qz-x", "x-qz", "xqz", "tag-start", "tag-inside"}));
    }

    void emptyQueriesKeepTheList()
    {
        for (const QString& query : {QString(), QStringLiteral("   "), QStringLiteral(" , ,")})
            QCOMPARE(names(IconSearch(fixture).search(query, fixture)), names(fixture));
    }

    void equalScoresKeepTheGivenOrder()
    {
        const IconList list{icon("b-home"), icon("a-home"), icon("c-home")};
        QCOMPARE(names(IconSearch(list).search(u"home", list)),
                 (QStringList{"b-home", "a-home", "c-home"}));
        IconList reversed(list.crbegin(), list.crend());
        QCOMPARE(names(IconSearch(list).search(u"home", reversed)),
                 (QStringList{"c-home", "a-home", "b-home"}));
    }

    void nearMatches_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<int>("limit");
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QStringList>("icons");
        QTest::newRow("five letters first")
            << "umbrellas" << 5 << QStringList{"umbre"} << QStringList{"Umbrella"};
        QTest::newRow("shortens to three") << "arrqq" << 5 << QStringList{"arr"}
                                           << QStringList{"arrow-left-circle", "circle-arrow-left",
                                                          "sparrow", "compass", "signpost"};
        QTest::newRow("tag prefix counts")
            << "birdsong" << 5 << QStringList{"bird"} << QStringList{"sparrow"};
        QTest::newRow("short words skipped") << "ab cd" << 5 << QStringList{} << QStringList{};
        QTest::newRow("words stop at the limit")
            << "umbrellas roads" << 1 << QStringList{"umbre"} << QStringList{"Umbrella"};
        QTest::newRow("second word adds, no duplicates")
            << "rainy umbrellas" << 5 << QStringList{"rain", "umbre"} << QStringList{"Umbrella"};
        QTest::newRow("nothing found") << "qqqqq" << 5 << QStringList{} << QStringList{};
    }
    void nearMatches()
    {
        QFETCH(QString, query);
        QFETCH(int, limit);
        QFETCH(QStringList, words);
        QFETCH(QStringList, icons);
        const auto result = IconSearch(fixture).nearMatches(query, limit);
        QCOMPARE(result.words, words);
        QCOMPARE(names(result.icons), icons);
    }
};

QTEST_GUILESS_MAIN(TestIconSearch)
#include "tst_iconsearch.moc"
