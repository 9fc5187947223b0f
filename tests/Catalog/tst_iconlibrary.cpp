#include "Catalog/CatalogueCodec.h"
#include "Catalog/IconLibrary.h"
#include "Catalog/NumericCompare.h"
#include "Catalog/PackageConverter.h"
#include "Catalog/ReleaseVersion.h"
#include "TestData.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <latch>
#include <thread>

using PackageConverter::OutEntry;
using PackageConverter::OutFile;
using TestData::readFile;
using TestData::writeFile;

namespace {

QByteArray catalogue(const QString& version, std::vector<OutEntry> icons = {})
{
    if (icons.empty())
        icons.push_back(
            {QStringLiteral("home"), QStringLiteral("Buildings"), {}, PathList{"M5 12l-2 0"}, {}});
    return OutFile{version, std::move(icons)}.encode();
}

} // namespace

class TestIconLibrary : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString shipped() const { return m_dir.filePath(QStringLiteral("shipped.json")); }
    QString downloaded() const
    {
        return m_dir.filePath(QStringLiteral("Pictray/tabler-icons.json"));
    }

private slots:
    void init()
    {
        QFile::remove(shipped());
        QFile::remove(downloaded());
        QDir().mkpath(m_dir.filePath(QStringLiteral("Pictray")));
    }

    void numericComparison_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("expected");
        QTest::newRow("minor digit count") << "3.10.0"
                                           << "3.9.1" << 1;
        QTest::newRow("leading zeros") << "3.010"
                                       << "3.9" << 1;
        QTest::newRow("prefix is smaller") << "3.1"
                                           << "3.1.0" << -1;
        QTest::newRow("letters") << "3.0.0-beta"
                                 << "3.0.0-alpha" << 1;
        QTest::newRow("empty") << ""
                               << "0" << -1;
        QTest::newRow("huge runs") << "99999999999999999999999"
                                   << "100000000000000000000000" << -1;
    }
    void numericComparison()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, expected);
        QCOMPARE(numericCompare(a, b), expected);
        QCOMPARE(numericCompare(b, a), -expected);
    }

    void choosesTheHigherVersion_data()
    {
        QTest::addColumn<QByteArray>("shippedBytes");
        QTest::addColumn<QByteArray>("downloadedBytes");
        QTest::addColumn<QString>("version");
        QTest::addColumn<bool>("fromDownload");
        QTest::newRow("newer download")
            << catalogue("3.9.0") << catalogue("3.10.0") << "3.10.0" << true;
        QTest::newRow("older download")
            << catalogue("3.10.0") << catalogue("3.9.0") << "3.10.0" << false;
        QTest::newRow("equal keeps shipped")
            << catalogue("3.9.0") << catalogue("3.9.0") << "3.9.0" << false;
        QTest::newRow("no download") << catalogue("3.9.0") << QByteArray() << "3.9.0" << false;
        QTest::newRow("nothing shipped") << QByteArray() << catalogue("1.0") << "1.0" << true;
        QTest::newRow("unversioned download skipped")
            << catalogue("3.9.0") << QByteArray("{\"icons\":[]}") << "3.9.0" << false;
        QTest::newRow("spaced version read by full decode")
            << catalogue("3.9.0")
            << QByteArray(
                   "{ \"version\" : \"3.11.0\", \"icons\": [{\"n\":\"x\",\"c\":\"\",\"t\":[]}]}")
            << "3.11.0" << true;
        QTest::newRow("version key later in the file")
            << catalogue("3.9.0") << QByteArray("{\"icons\":[],\"version\":\"4.0\"}") << "4.0"
            << true;
    }
    void choosesTheHigherVersion()
    {
        QFETCH(QByteArray, shippedBytes);
        QFETCH(QByteArray, downloadedBytes);
        QFETCH(QString, version);
        QFETCH(bool, fromDownload);
        if (!shippedBytes.isEmpty())
            writeFile(shipped(), shippedBytes);
        if (!downloadedBytes.isEmpty())
            writeFile(downloaded(), downloadedBytes);
        const IconLibrary library({shipped(), downloaded()});
        QCOMPARE(library.version(), version);
        QCOMPARE(library.loadedPath(), fromDownload ? downloaded() : shipped());
        // The quick names-only read chooses the same file.
        QStringList names;
        for (const Icon& icon : library.icons())
            names.append(icon.id());
        QCOMPARE(IconLibrary::iconNames({shipped(), downloaded()}), names);
    }

    // A newer download that does not decode gives way to the shipped file,
    // and is kept aside for a look rather than tried again at every start.
    void brokenNewerDownloadIsSetAside()
    {
        writeFile(shipped(), catalogue("3.9.0"));
        QByteArray broken = catalogue("9.0.0");
        broken.chop(10);
        writeFile(downloaded(), broken);
        const IconLibrary library({shipped(), downloaded()});
        QCOMPARE(library.version(), u"3.9.0"_qs);
        QCOMPARE(library.loadedPath(), shipped());
        QVERIFY(!QFile::exists(downloaded()));
        QCOMPARE(readFile(downloaded() + ".damaged"), broken);
        QVERIFY(IconLibrary({shipped(), downloaded()}).loadProblem().isEmpty());
        QCOMPARE(IconLibrary::iconNames({shipped(), downloaded()}).size(), library.icons().size());
    }

    // Another process installed a release (or left a broken file): the
    // running library takes the good one and leaves the broken one alone.
    void refreshTakesOnlyADecodableNewFile()
    {
        writeFile(shipped(), catalogue("3.9.0"));
        IconLibrary library({shipped(), downloaded()});
        QSignalSpy changed(&library, &IconLibrary::catalogueChanged);
        QVERIFY(!library.refresh());
        QByteArray broken = catalogue("9.0.0");
        broken.chop(10);
        writeFile(downloaded(), broken);
        QVERIFY(!library.refresh());
        QCOMPARE(readFile(downloaded()), broken);
        writeFile(downloaded(), catalogue("3.10.0"));
        QVERIFY(library.refresh());
        QCOMPARE(library.version(), u"3.10.0"_qs);
        QCOMPARE(changed.size(), 1);
    }

    void releaseVersions_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("expected");
        QTest::newRow("numeric parts") << "3.61.0"
                                       << "3.9.10" << 1;
        QTest::newRow("missing part is zero") << "3.1"
                                              << "3.1.0" << 0;
        QTest::newRow("pre-release first") << "3.0.0-beta.2"
                                           << "3.0.0" << -1;
        QTest::newRow("a word is no release") << "latest"
                                              << "0.1" << -1;
        QTest::newRow("empty parts") << "9..."
                                     << "0.1" << -1;
        QTest::newRow("a lone number") << "99999999"
                                       << "0.1" << -1;
    }
    void releaseVersions()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, expected);
        QCOMPARE(compareCatalogueVersions(a, b), expected);
        QCOMPARE(compareCatalogueVersions(b, a), -expected);
    }

    void undecodableFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("missing n") << QByteArray(R"({"version":"1","icons":[{"c":"","t":[]}]})");
        QTest::newRow("numeric tag")
            << QByteArray(R"({"version":"1","icons":[{"n":"a","c":"","t":[2]}]})");
        // Names reach terminals and file names, path data reaches markup.
        QTest::newRow("markup in path data")
            << QByteArray(R"({"version":"1","icons":[{"n":"a","c":"","t":[],)"
                          R"("o":["M0 0'/><script>x</script>"]}]})");
        QTest::newRow("upper case name")
            << QByteArray(R"({"version":"1","icons":[{"n":"Home","c":"","t":[]}]})");
        QTest::newRow("escape sequence in name") << QByteArray(
            "{\"version\":\"1\",\"icons\":[{\"n\":\"a\\u001b[2Jb\",\"c\":\"\",\"t\":[]}]}");
        QTest::newRow("not json") << QByteArray("{\"version\":\"1\",\"icons\":[\xff");
        QTest::newRow("deep nesting")
            << QByteArray("{\"version\":\"1\",\"icons\":") + QByteArray(5000, '[');
        QTest::newRow("path attributes not one per path")
            << QByteArray(R"({"version":"1","icons":[{"n":"a","c":"","t":[],"o":["M1 1"],)"
                          R"("oa":[{},{"fill":"none"}]}]})");
        QTest::newRow("path attributes without paths")
            << QByteArray(R"({"version":"1","icons":[{"n":"a","c":"","t":[],"fa":[{}]}]})");
    }
    void undecodableFiles()
    {
        QFETCH(QByteArray, bytes);
        QString error;
        QVERIFY(!CatalogueCodec::decode(bytes, &error));
        QVERIFY(!error.isEmpty());
    }

    // Path data of bytes that outlive the icons is kept as views of them,
    // except where the file spells it otherwise (escaped).
    void buildsIconsFromEntries()
    {
        const QByteArray bytes = R"({"version":"3.0","extra":1,"icons":[
            {"n":"home","c":"Buildings","t":["House","home","HOME","living","roof","x"],"o":["M1 1"],"f":null,"z":5},
            {"n":"home","c":"Buildings","t":[],"o":["M2 2"],"f":["M3 3"]},
            {"n":"home","c":"Other","t":[],"o":["M4 4"]},
            {"n":"alone","c":"Arrows","t":["alone"]}]})";
        writeFile(shipped(), bytes);
        const IconLibrary library({shipped(), {}});
        QCOMPARE(library.iconCount(), 4);
        QCOMPARE(library.categories(), (QStringList{"Arrows", "Buildings", "Other"}));
        QCOMPARE(library.outlineCount(), 3);
        QCOMPARE(library.filledCount(), 1);

        const Icon first = library.icons().first();
        QCOMPARE(first.searchName(), QStringLiteral("home"));
        QCOMPARE(first.searchTags().first(), QStringLiteral("house"));
        QVERIFY(!first.has(IconStyle::filled)); // null means no filled form
        // Only the exact name is dropped; the case of the others stays.
        QCOMPARE(first.tagLine(), QString::fromUtf8("House · HOME · living · roof"));
        QCOMPARE(library.icons().last().tagLine(), QStringLiteral("Arrows"));

        // Exact, case-sensitive lookup; the first of two equal names wins.
        QCOMPARE(library.icon(u"home").paths(IconStyle::outline)->first(), QByteArray("M1 1"));
        QVERIFY(library.icon(u"HOME").isNull());
        QVERIFY(!library.icon(u"alone").has(IconStyle::outline));
    }

    // Known attributes with well-formed values are kept in file order; any
    // other attribute or value is dropped, never passed on as text.
    void readsPathAttributes_data()
    {
        QTest::addColumn<QByteArray>("attributes");
        QTest::addColumn<QByteArrayList>("kept");
        QTest::newRow("as the icon set writes them")
            << QByteArray(R"({"fill":"currentColor","stroke":"none"})")
            << QByteArrayList{"fill=currentColor", "stroke=none"};
        QTest::newRow("unknown attribute")
            << QByteArray(R"({"stroke-width":"3","fill":"none"})") << QByteArrayList{"fill=none"};
        QTest::newRow("markup") << QByteArray("{\"fill\":\"red\\\"/><script>\"}")
                                << QByteArrayList{};
        QTest::newRow("opacity") << QByteArray(R"({"opacity":".5"})")
                                 << QByteArrayList{"opacity=.5"};
        QTest::newRow("opacity above 1") << QByteArray(R"({"opacity":"1.5"})") << QByteArrayList{};
        QTest::newRow("opacity with exponent")
            << QByteArray(R"({"opacity":"5e-1"})") << QByteArrayList{};
        QTest::newRow("not a string") << QByteArray(R"({"opacity":0.5})") << QByteArrayList{};
        QTest::newRow("twice") << QByteArray(R"({"fill":"none","fill":"currentColor"})")
                               << QByteArrayList{"fill=none"};
    }
    void readsPathAttributes()
    {
        QFETCH(QByteArray, attributes);
        const auto file = CatalogueCodec::decode(
            R"({"version":"1","icons":[{"n":"a","c":"","t":[],"o":["M1 1","M2 2"],"oa":[{},)" +
            attributes + "]}]}");
        QVERIFY(file);
        const PathPaints& paints = file->icons.first().paints(IconStyle::outline);
        QByteArrayList read;
        if (!paints.isEmpty()) {
            QCOMPARE(paints.size(), 2);
            QVERIFY(paints[0].isPlain());
            for (const PathPaint::Attribute& attribute : paints[1].attributes())
                read += PathPaint::text(attribute.name).toByteArray() + '=' + attribute.value;
        }
        QTEST(read, "kept");
    }

    void installWritesOnlyGoodData()
    {
        writeFile(shipped(), catalogue("3.9.0"));
        IconLibrary library({shipped(), downloaded()});
        QSignalSpy changed(&library, &IconLibrary::catalogueChanged);

        QString error;
        QVERIFY(!library.install("{\"version\":\"9.9\",\"icons\":[{}]}", &error));
        QVERIFY(error.contains(u"damaged"));
        QVERIFY(!QFile::exists(downloaded()));
        QCOMPARE(library.version(), QStringLiteral("3.9.0"));
        QCOMPARE(changed.count(), 0);

        const QByteArray good = catalogue("3.10.0");
        QVERIFY(library.install(good, &error));
        QCOMPARE(readFile(downloaded()), good);
        QCOMPARE(library.version(), QStringLiteral("3.10.0"));
        QCOMPARE(library.loadedPath(), downloaded());
        QCOMPARE(changed.count(), 1);

        // The next start finds the installed file.
        QCOMPARE(IconLibrary({shipped(), downloaded()}).version(), QStringLiteral("3.10.0"));
    }

    void installFailsCleanlyWhenTheFolderIsNotWritable()
    {
        writeFile(shipped(), catalogue("1.0"));
        const QString blocker = m_dir.filePath(QStringLiteral("file"));
        writeFile(blocker, "x");
        IconLibrary library({shipped(), blocker + QStringLiteral("/sub/tabler-icons.json")});
        QString error;
        QVERIFY(!library.install(catalogue("2.0"), &error));
        QVERIFY(!error.isEmpty());
        QCOMPARE(library.version(), QStringLiteral("1.0"));
    }

    void peekVersion_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("version");
        QTest::newRow("compact") << QByteArray(R"({"version":"3.51.0","icons":[)") << "3.51.0";
        QTest::newRow("broken after the start")
            << QByteArray(R"({"version":"7.0","icons":[{{{)") << "7.0";
        QTest::newRow("empty value then full decode")
            << QByteArray(R"({"version":"","icons":[]})") << "";
        // The start alone is read, even when its last character is cut in two.
        QTest::newRow("multibyte char cut at the end of the start")
            << QByteArray("{\"version\":\"1.0\",\"x\":\"") + QByteArray(41, 'a') + "\xc3\xa9]]"
            << "1.0";
        QTest::newRow("no version") << QByteArray(R"({"icons":[]})") << QString();
    }
    void peekVersion()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, version);
        const auto peeked = IconLibrary::peekVersion(bytes);
        QCOMPARE(peeked.value_or(QStringLiteral("<none>")),
                 version.isNull() ? QStringLiteral("<none>") : version);
    }

    void pathsAreCachedPerStyleAndThreadSafe()
    {
        writeFile(shipped(), R"({"version":"1","icons":[
            {"n":"a","c":"","t":[],"o":["M0 0L10 0"],"f":["M0 0L5 5L0 5Z"]},
            {"n":"b","c":"","t":[],"f":["M1 1L2 2"]}]})");
        const IconLibrary library({shipped(), {}});
        const Icon a = library.icon(u"a");
        const Icon b = library.icon(u"b");
        QVERIFY(!library.iconDrawing(b, IconStyle::outline).has_value());
        QVERIFY(library.iconDrawing(b, IconStyle::filled).has_value());

        std::vector<std::thread> threads;
        std::atomic<int> mismatches{0};
        // All start together, so the first lookups race for the empty cache.
        std::latch start(4);
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&] {
                start.arrive_and_wait();
                for (int i = 0; i < 200; ++i) {
                    const auto outline = library.iconDrawing(a, IconStyle::outline);
                    const auto filled = library.iconDrawing(a, IconStyle::filled);
                    if (!outline || !filled || outline->layers.size() != 1 ||
                        outline->layers[0].path.fillRule() != Qt::WindingFill ||
                        outline->layers[0].path.elementCount() ==
                            filled->layers[0].path.elementCount())
                        ++mismatches;
                }
            });
        }
        for (auto& thread : threads)
            thread.join();
        QCOMPARE(mismatches.load(), 0);
    }
};

QTEST_GUILESS_MAIN(TestIconLibrary)
#include "tst_iconlibrary.moc"
