#include "Catalog/CatalogueCodec.h"
#include "Catalog/PackageConverter.h"

#include <QTest>
#include <algorithm>

using namespace PackageConverter;

class TestPackageConverter : public QObject {
    Q_OBJECT

private slots:
    void numbersBecomeDecimalText_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("integral") << 2.0 << "2.0";
        QTest::newRow("fraction") << 1.5 << "1.5";
        QTest::newRow("negative") << -3.25 << "-3.25";
        QTest::newRow("shortest round trip") << 0.1 << "0.1";
        QTest::newRow("large") << 1e16 << "1e+16";
        QTest::newRow("tiny") << 1e-5 << "1e-05";
    }
    void numbersBecomeDecimalText()
    {
        QFETCH(double, value);
        QTEST(stringOrNumber(value), "text");
    }

    void nodesKeepOnlyPathData()
    {
        const auto result = nodes(R"({
            "clock": [["circle", {"cx": "12", "cy": "12", "r": "9"}], ["path", {"d": "M12 7v5l3 3"}]],
            "odd": [["path", {"d": 5}], ["path"], "text", ["path", {"d": "M1 1"}, 3], ["path", {"d": "M2 2"}]],
            "empty": []})");
        QCOMPARE(result.value(QStringLiteral("clock")).paths, PathList{"M12 7v5l3 3"});
        QCOMPARE(result.value(QStringLiteral("odd")).paths, PathList{"M2 2"});
        QVERIFY(result.contains(QStringLiteral("empty")));
    }

    void pathAttributesReachTheCatalogue()
    {
        const QByteArray outline = R"({
            "pie": [["path", {"d": "M1 1", "fill": "currentColor", "stroke": "none"}],
                    ["path", {"d": "M2 2"}], ["path", {"d": "M3 3", "opacity": ".5", "x": "1"}]],
            "plain": [["path", {"d": "M1 1", "stroke-width": "1"}]]})";
        QString error;
        const auto converted = convert(QStringLiteral("1.0"), "{}", outline, "{}", &error);
        QVERIFY2(converted, qPrintable(error));
        QVERIFY(converted->contains(
            R"("o":["M1 1","M2 2","M3 3"],"oa":[{"fill":"currentColor","stroke":"none"},{},)"
            R"({"opacity":".5"}]})"));
        QVERIFY(converted->endsWith(R"("o":["M1 1"]}]})")); // nothing for a plain icon

        const auto file = CatalogueCodec::decode(*converted);
        QVERIFY(file);
        const PathPaints& pie = file->icons.first().paints(IconStyle::outline);
        QCOMPARE(pie.size(), 3);
        QCOMPARE(pie[0].fill(), std::optional<bool>(true));
        QCOMPARE(pie[0].stroke(), std::optional<bool>(false));
        QVERIFY(pie[1].isPlain());
        QCOMPARE(pie[2].opacity(), 0.5);
        QVERIFY(file->icons.last().paints(IconStyle::outline).isEmpty());
    }

    void nodeFilesOfTheWrongShapeGiveNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("array") << QByteArray("[1,2]");
        QTest::newRow("value not an array") << QByteArray(R"({"a": [], "b": {"d": "M1 1"}})");
        QTest::newRow("not json") << QByteArray("<html>");
        QTest::newRow("deep") << QByteArray(100000, '[');
    }
    void nodeFilesOfTheWrongShapeGiveNothing()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(nodes(bytes).isEmpty());
    }

    void metadata_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QStringList>("tags");
        QTest::newRow("mixed tags, null dropped")
            << QByteArray(
                   R"({"x": {"category": "C", "tags": ["a", 2, null, true, {}, "b"], "styles": {}}})")
            << true << QStringList{"a", "2.0", "b"};
        QTest::newRow("missing fields") << QByteArray(R"({"x": {}})") << true << QStringList{};
        QTest::newRow("null fields")
            << QByteArray(R"({"x": {"category": null, "tags": null}})") << true << QStringList{};
        QTest::newRow("category not a string")
            << QByteArray(R"({"x": {"category": 1}})") << false << QStringList{};
        QTest::newRow("tags not an array")
            << QByteArray(R"({"x": {"tags": "a"}})") << false << QStringList{};
        QTest::newRow("entry not an object")
            << QByteArray(R"({"x": []})") << false << QStringList{};
        QTest::newRow("not an object") << QByteArray("[]") << false << QStringList{};
    }
    void metadata()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, valid);
        QFETCH(QStringList, tags);
        QString error;
        const auto meta = PackageConverter::metadata(bytes, &error);
        QCOMPARE(meta.has_value(), valid);
        QCOMPARE(error.isEmpty(), valid);
        if (meta)
            QCOMPARE(meta->value(QStringLiteral("x")).tags, tags);
    }

    void convertsAPackage()
    {
        // A tag that needs escaping in JSON: x"\ .
        const QByteArray iconsJson = R"({
            "b-icon": {"category": "Cat", "tags": ["t1", 7]},
            "only-meta": {"category": "Gone"},)"
                                     "\"a-icon\": {\"tags\": [\"x\\\"\\\\\"]}}";
        const QByteArray outline =
            R"({"b-icon": [["path", {"d": "M1 1"}]], "a-icon": [["path", {"d": "M2 2"}]]})";
        const QByteArray filled =
            R"({"b-icon": [["path", {"d": "M3 3"}]], "c-filled-only": [["path", {"d": "M4 4"}]]})";
        QString error;
        const auto bytes = convert(QStringLiteral("3.10.0"), iconsJson, outline, filled, &error);
        QVERIFY2(bytes, qPrintable(error));
        QCOMPARE(
            *bytes,
            QByteArray(R"({"version":"3.10.0","icons":[)"
                       "{\"n\":\"a-icon\",\"c\":\"\",\"t\":[\"x\\\"\\\\\"],\"o\":[\"M2 2\"]},"
                       R"({"n":"b-icon","c":"Cat","t":["t1","7.0"],"o":["M1 1"],"f":["M3 3"]},)"
                       R"({"n":"c-filled-only","c":"","t":[],"f":["M4 4"]}]})"));
        // The written file reads back through the catalogue decoder.
        const auto file = CatalogueCodec::decode(*bytes);
        QVERIFY(file);
        QCOMPARE(file->icons.size(), 3);
        QCOMPARE(file->icons[0].tags().first(), QStringLiteral("x\"\\"));
        QVERIFY(!file->icons[2].has(IconStyle::outline));
    }

    void controlCharactersAreEscaped()
    {
        QByteArray out;
        CatalogueCodec::appendJsonString(out, QStringView(u"a\u0001b\nc\u00e9"));
        QCOMPARE(out, QByteArray("\"a\\u0001b\\nc\xc3\xa9\""));
    }

    // A release whose names or path data a catalogue may not hold converts
    // to nothing, with a reason; the library never sees it.
    void refusesWhatACatalogueMayNotHold_data()
    {
        QTest::addColumn<QByteArray>("outline");
        QTest::newRow("markup in path data")
            << QByteArray(R"({"a": [["path", {"d": "M0 0'/><script>x</script>"}]]})");
        QTest::newRow("upper case name") << QByteArray(R"({"Arrow": [["path", {"d": "M1 1"}]]})");
        QTest::newRow("newline in name")
            << QByteArray("{\"a\\nb\": [[\"path\", {\"d\": \"M1 1\"}]]}");
        QTest::newRow("escape sequence in name")
            << QByteArray("{\"a\\u001b]0;x\\u0007\": [[\"path\", {\"d\": \"M1 1\"}]]}");
    }
    void refusesWhatACatalogueMayNotHold()
    {
        QFETCH(QByteArray, outline);
        QString error;
        QVERIFY(!convert(QStringLiteral("1"), "{}", outline, "{}", &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(std::ranges::none_of(error,
                                     [](QChar c) { return c.category() == QChar::Other_Control; }));
    }

    void badMetadataFailsTheConversion()
    {
        QString error;
        QVERIFY(!convert(QStringLiteral("1"), "[]", "{}", "{}", &error));
        QVERIFY(!error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestPackageConverter)
#include "tst_packageconverter.moc"
