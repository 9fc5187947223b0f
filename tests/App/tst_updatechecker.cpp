#include "App/Shell/UpdateChecker.h"
#include "Base/AppConfig.h"
#include "FixtureHttpServer.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Kind = ReleaseCheck::Outcome::Kind;

namespace {

QByteArray feedOf(const QString& version)
{
    return "<rss version=\"2.0\" xmlns:sparkle=\"urn:example:sparkle\"><channel><item>"
           "<sparkle:shortVersionString>" +
           version.toUtf8() + "</sparkle:shortVersionString></item></channel></rss>";
}

} // namespace

// "Check for Updates…" against a local feed, and the automatic check's day.
class TestUpdateChecker : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    int m_runs = 0;
    std::unique_ptr<FixtureHttpServer> m_server;
    std::unique_ptr<SettingsStore> m_store;
    std::unique_ptr<Preferences> m_prefs;
    QDateTime m_now = QDateTime(QDate(2026, 11, 24), QTime(8, 0), Qt::UTC);
    std::unique_ptr<UpdateChecker> m_checker;

    // Waits for the check under way and returns its outcome.
    static ReleaseCheck::Outcome outcomeOf(QSignalSpy& checked)
    {
        [&] { QTRY_COMPARE_WITH_TIMEOUT(checked.size(), 1, 10000); }();
        return checked.takeFirst().at(0).value<ReleaseCheck::Outcome>();
    }

private slots:
    void init()
    {
        m_server = std::make_unique<FixtureHttpServer>();
        qputenv("PICTRAY_RELEASE_FEED_URL", m_server->url(u"/appcast.xml"_qs).toEncoded());
        m_store = std::make_unique<SettingsStore>(
            m_dir.filePath(QStringLiteral("%1/Pictray.conf").arg(++m_runs)));
        m_prefs = std::make_unique<Preferences>(*m_store);
        m_checker = std::make_unique<UpdateChecker>(*m_prefs, [this] { return m_now; });
    }
    void cleanup()
    {
        m_checker.reset();
        m_prefs.reset();
        m_store.reset();
    }

    void askedCheckSaysWhatItFound_data()
    {
        QTest::addColumn<QByteArray>("feed"); // empty: not served
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("text");
        QTest::newRow("newer") << feedOf(u"99.0.0"_qs) << Kind::newer
                               << "Pictray 99.0.0 is available.";
        QTest::newRow("same") << feedOf(AppConfig::version()) << Kind::upToDate
                              << "You're up to date.";
        QTest::newRow("not found")
            << QByteArray() << Kind::failed << "Couldn\u2019t check for updates.";
    }
    void askedCheckSaysWhatItFound()
    {
        QFETCH(QByteArray, feed);
        QFETCH(Kind, kind);
        QFETCH(QString, text);
        if (!feed.isEmpty())
            m_server->serve(u"/appcast.xml"_qs, feed);
        QSignalSpy checked(m_checker.get(), &UpdateChecker::checked);
        m_checker->checkForUpdates();
        const ReleaseCheck::Outcome outcome = outcomeOf(checked);
        QCOMPARE(outcome.kind, kind);
        QVERIFY(m_checker->dialog());
        QCOMPARE(m_checker->dialog()->text(), text);
    }

    // Automatic checks: only when switched on, at most once a day, and a
    // window only for news.
    void automaticCheckRunsOnceADay()
    {
        m_server->serve(u"/appcast.xml"_qs, feedOf(AppConfig::version()));
        QSignalSpy checked(m_checker.get(), &UpdateChecker::checked);
        m_checker->checkIfDue();
        QVERIFY(!m_checker->isChecking());

        m_prefs->setAutomaticallyChecksForUpdates(true);
        QCOMPARE(outcomeOf(checked).kind, Kind::upToDate);
        QVERIFY(!m_checker->dialog());

        m_now = m_now.addSecs(23 * 3600);
        m_checker->checkIfDue();
        QVERIFY(!m_checker->isChecking());

        m_server->serve(u"/appcast.xml"_qs, feedOf(u"99.0.0"_qs));
        m_now = m_now.addSecs(3600);
        m_checker->checkIfDue();
        QVERIFY(m_checker->isChecking());
        QCOMPARE(outcomeOf(checked).kind, Kind::newer);
        QVERIFY(m_checker->dialog());
        QCOMPARE(m_server->requests().size(), 2);
    }
};

QTEST_MAIN(TestUpdateChecker)
#include "tst_updatechecker.moc"
