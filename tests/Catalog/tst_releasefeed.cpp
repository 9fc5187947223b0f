#include "Catalog/ReleaseFeed.h"

#include <QTest>

namespace {

QByteArray feed(const QByteArray& items)
{
    return "<?xml version=\"1.0\"?>\n"
           "<rss version=\"2.0\" xmlns:sparkle=\"urn:example:sparkle\"><channel>"
           "<title>Pictray</title>" +
           items + "</channel></rss>";
}

QByteArray item(const QByteArray& version, const QByteArray& extra = {})
{
    return "<item><title>Pictray " + version + "</title>" + "<sparkle:shortVersionString>" +
           version + "</sparkle:shortVersionString>" + extra + "</item>";
}

} // namespace

class TestReleaseFeed : public QObject {
    Q_OBJECT

private slots:
    // Which release, if any, is news for a program of version 1.2.0.
    void newestRelease_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QString>("newer"); // empty: nothing newer
        QTest::newRow("newer") << feed(item("1.10.0")) << "1.10.0";
        QTest::newRow("older") << feed(item("1.1.9")) << "";
        QTest::newRow("no items") << feed({}) << "";
        QTest::newRow("newest of several, any order")
            << feed(item("1.3.0") + item("2.0.0") + item("1.9.0")) << "2.0.0";
        QTest::newRow("pre-release of a newer one") << feed(item("1.3.0-beta.1")) << "1.3.0-beta.1";
        QTest::newRow("version on the enclosure")
            << feed("<item><enclosure url=\"https://example.org/p.deb\" "
                    "sparkle:version=\"7\" sparkle:shortVersionString=\"1.4.0\"/></item>")
            << "1.4.0";
        QTest::newRow("build number only is not a release")
            << feed("<item><sparkle:version>123</sparkle:version></item>") << "";
        QTest::newRow("garbage version skipped, good one kept")
            << feed(item("latest") + item("9...") + item("1.2.1")) << "1.2.1";
        QTest::newRow("version without the update prefix is ignored")
            << feed("<item><version>9.0.0</version></item>") << "";
    }
    void newestRelease()
    {
        QFETCH(QByteArray, data);
        QString error;
        const auto releases = ReleaseFeed::parse(data, &error);
        QVERIFY2(releases, qPrintable(error));
        const auto found = ReleaseFeed::newerThan(*releases, u"1.2.0"_qs);
        QTEST(found ? found->version : QString(), "newer");
    }

    void readsLinksAndDate()
    {
        const auto releases = ReleaseFeed::parse(
            feed(item("2.0.0", "<link>https://example.org/download</link>"
                               "<sparkle:releaseNotesLink>https://example.org/notes/2.0"
                               "</sparkle:releaseNotesLink>"
                               "<pubDate>Tue, 24 Nov 2026 10:00:00 +0000</pubDate>") +
                 item("2.1.0", "<link>javascript:alert(1)</link>"
                               "<sparkle:releaseNotesLink>file:///etc/passwd"
                               "</sparkle:releaseNotesLink>")),
            nullptr);
        QVERIFY(releases);
        QCOMPARE(releases->size(), 2);
        const ReleaseFeed::Release& first = releases->at(0);
        QCOMPARE(first.downloadURL, QUrl(u"https://example.org/download"_qs));
        QCOMPARE(first.notesURL, QUrl(u"https://example.org/notes/2.0"_qs));
        QCOMPARE(first.published, QDateTime(QDate(2026, 11, 24), QTime(10, 0), Qt::UTC));
        // Only web links are taken from a feed.
        QVERIFY(releases->at(1).downloadURL.isEmpty());
        QVERIFY(releases->at(1).notesURL.isEmpty());
    }

    void refusesWhatIsNotAFeed_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("not XML") << QByteArray("{\"version\": \"9.0.0\"}");
        QTest::newRow("an HTML page") << QByteArray("<html><body>Not found</body></html>");
        QTest::newRow("cut short") << feed(item("2.0.0")).chopped(20);
        QTest::newRow("too large") << feed(QByteArray(ReleaseFeed::maxBytes, ' ') + item("2.0.0"));
        QTest::newRow("entity expansion")
            << QByteArray("<?xml version=\"1.0\"?><!DOCTYPE rss [<!ENTITY a \"aaaaaaaaaa\">"
                          "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">]>"
                          "<rss><channel><title>&b;</title></channel></rss>");
        QTest::newRow("external entity")
            << QByteArray("<?xml version=\"1.0\"?><!DOCTYPE rss [<!ENTITY x SYSTEM "
                          "\"file:///etc/passwd\">]><rss><channel><title>&x;</title>"
                          "</channel></rss>");
        QTest::newRow("undeclared entity") << feed("<item>&x;</item>");
    }
    void refusesWhatIsNotAFeed()
    {
        QFETCH(QByteArray, data);
        QString error;
        QCOMPARE(ReleaseFeed::parse(data, &error), std::nullopt);
        QVERIFY(!error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestReleaseFeed)
#include "tst_releasefeed.moc"
