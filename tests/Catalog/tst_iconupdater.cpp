#include "Catalog/IconLibrary.h"
#include "Catalog/IconUpdater.h"
#include "Catalog/PackageConverter.h"
#include "FixtureHttpServer.h"
#include "TestData.h"

#include <QFutureWatcherBase>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

using Kind = IconUpdater::State::Kind;

namespace {

const QByteArray metadata = R"({"home": {"category": "Buildings", "tags": ["house", 2]},
                                "star": {"category": "Shapes", "tags": ["favorite"]}})";
const QByteArray outlineNodes = R"({"home": [["path", {"d": "M5 12l-2 0"}]],
                                    "star": [["circle", {"r": "1"}], ["path", {"d": "M12 17.75l-6.172 3.245"}]]})";
const QByteArray filledNodes = R"({"star": [["path", {"d": "M8.243 7.34l-6.38 .925"}]]})";

} // namespace

class TestIconUpdater : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    std::unique_ptr<FixtureHttpServer> m_server;
    std::unique_ptr<IconLibrary> m_library;
    std::unique_ptr<IconUpdater> m_updater;
    QList<IconUpdater::State> m_states;

    QString downloaded() const { return m_dir.filePath(QStringLiteral("data/tabler-icons.json")); }

    void serveRelease(const QString& version, const QByteArray& meta = metadata,
                      const QByteArray& outline = outlineNodes,
                      const QByteArray& filled = filledNodes)
    {
        const QString base = QStringLiteral("/npm/@tabler/icons@") + version + u'/';
        m_server->serve(QStringLiteral("/latest"), "{\"version\": \"" + version.toUtf8() + "\"}");
        m_server->serve(base + QStringLiteral("icons.json"), meta);
        m_server->serve(base + QStringLiteral("tabler-nodes-outline.json"), outline);
        m_server->serve(base + QStringLiteral("tabler-nodes-filled.json"), filled);
    }

    void check()
    {
        m_updater->checkForNewIcons();
        QTRY_VERIFY_WITH_TIMEOUT(!m_updater->isBusy(), 10000);
    }

    void expectUnchanged()
    {
        QCOMPARE(m_library->version(), QStringLiteral("3.9.2"));
        QVERIFY(!QFile::exists(downloaded()));
    }

private slots:
    void init()
    {
        QFile::remove(downloaded());
        const QString shipped = m_dir.filePath(QStringLiteral("shipped.json"));
        TestData::writeFile(
            shipped, R"({"version":"3.9.2","icons":[{"n":"old","c":"","t":[],"o":["M1 1"]}]})");
        m_server = std::make_unique<FixtureHttpServer>();
        qputenv("PICTRAY_LATEST_URL", m_server->url(QStringLiteral("/latest")).toEncoded());
        qputenv("PICTRAY_CDN_URL", m_server->url().toEncoded());
        m_library = std::make_unique<IconLibrary>(IconLibrary::Sources{shipped, downloaded()});
        m_updater = std::make_unique<IconUpdater>(*m_library);
        m_states.clear();
        connect(m_updater.get(), &IconUpdater::stateChanged, this,
                [this] { m_states.append(m_updater->state()); });
    }

    void upToDateDownloadsNothing()
    {
        serveRelease(QStringLiteral("3.9.2"));
        check();
        QCOMPARE(m_updater->state().kind, Kind::upToDate);
        QCOMPARE(m_updater->statusText(), QStringLiteral("You have the newest icons."));
        QCOMPARE(m_server->requests(), QStringList{QStringLiteral("/latest")});
        expectUnchanged();
    }

    void newerReleaseIsInstalled()
    {
        serveRelease(QStringLiteral("3.10.0"));
        check();
        QCOMPARE(m_states.size(), 3);
        QCOMPARE(m_states[0].kind, Kind::checking);
        QCOMPARE(m_states[1].text(), QStringLiteral("Downloading Tabler Icons 3.10.0\u2026"));
        QCOMPARE(m_states[2].text(), QStringLiteral("Updated to Tabler Icons 3.10.0."));

        QCOMPARE(m_library->version(), QStringLiteral("3.10.0"));
        QCOMPARE(m_library->iconCount(), 2);
        // How metadata and nodes convert is tst_packageconverter's; each file is read as its style.
        QVERIFY(!m_library->icon(u"home").has(IconStyle::filled));
        QVERIFY(m_library->icon(u"star").has(IconStyle::filled));
        QVERIFY(TestData::readFile(downloaded()).startsWith(R"({"version":"3.10.0","icons":[)"));
    }

    void brokenNodeFileContributesNothing()
    {
        serveRelease(QStringLiteral("4.0.0"), metadata, outlineNodes, "{\"star\": 5}");
        check();
        QCOMPARE(m_updater->state().kind, Kind::updated);
        QCOMPARE(m_library->iconCount(), 2);
        QCOMPARE(m_library->filledCount(), 0);
    }

    // A second check, from the settings window or the command line, while
    // one is asking or downloading asks and downloads nothing again.
    void aCheckUnderWayIsJoined()
    {
        serveRelease(QStringLiteral("3.10.0"));
        connect(m_updater.get(), &IconUpdater::stateChanged, this, [this] {
            if (m_updater->state().kind == Kind::downloading)
                m_updater->checkForNewIcons();
        });
        m_updater->checkForNewIcons();
        m_updater->checkForNewIcons();
        QTRY_VERIFY_WITH_TIMEOUT(!m_updater->isBusy(), 10000);
        QStringList requests = m_server->requests();
        requests.sort();
        QCOMPARE(requests,
                 (QStringList{u"/latest"_qs, u"/npm/@tabler/icons@3.10.0/icons.json"_qs,
                              u"/npm/@tabler/icons@3.10.0/tabler-nodes-filled.json"_qs,
                              u"/npm/@tabler/icons@3.10.0/tabler-nodes-outline.json"_qs}));
        QCOMPARE(m_states.size(), 3);
        QCOMPARE(m_states.last().kind, Kind::updated);
        QCOMPARE(m_library->version(), u"3.10.0"_qs);
    }

    // Converting and saving wait for a worker while the main thread goes on;
    // the new catalogue then arrives on the main thread.
    void theReleaseIsPreparedOnAWorkerAndTakenOnTheMainThread()
    {
        QThreadPool workers;
        workers.setMaxThreadCount(1);
        QSemaphore release;
        workers.start([&release] { release.acquire(); }); // holds the only worker
        m_updater = std::make_unique<IconUpdater>(*m_library, workers);
        QList<QThread*> appliedOn;
        connect(
            m_library.get(), &IconLibrary::catalogueChanged, this,
            [&appliedOn] { appliedOn.append(QThread::currentThread()); }, Qt::DirectConnection);

        serveRelease(QStringLiteral("3.10.0"));
        m_updater->checkForNewIcons();
        // The downloads are done and the release waits for the worker.
        QTRY_VERIFY_WITH_TIMEOUT(m_updater->findChild<QFutureWatcherBase*>(), 10000);
        QCOMPARE(m_updater->state().kind, Kind::downloading);
        m_updater->checkForNewIcons(); // joins: still one of each request
        QCOMPARE(m_server->requests().size(), 4);
        expectUnchanged();

        release.release();
        QTRY_VERIFY_WITH_TIMEOUT(!m_updater->isBusy(), 10000);
        QCOMPARE(m_updater->state().text(), u"Updated to Tabler Icons 3.10.0."_qs);
        QCOMPARE(m_library->version(), u"3.10.0"_qs);
        QCOMPARE(appliedOn, QList<QThread*>{thread()});
        QVERIFY(workers.waitForDone(10000));
        m_updater.reset(); // it works on this test's pool
    }

    void failuresChangeNothing_data()
    {
        QTest::addColumn<QString>("problem");
        QTest::addColumn<QString>("message");
        QTest::newRow("server error on latest") << u"latest500"_qs << u"answered 500"_qs;
        QTest::newRow("implausible version") << u"badVersion"_qs << u"unusable version"_qs;
        QTest::newRow("both node files empty")
            << u"emptyNodes"_qs << u"release 3.10.0 looks damaged (0 icons)."_qs;
        QTest::newRow("redirect to another host")
            << u"redirectAway"_qs << u"which is not the same server"_qs;
        QTest::newRow("connection refused")
            << u"refused"_qs << u"Connection refused (http://127.0.0.1:"_qs;
    }
    void failuresChangeNothing()
    {
        QFETCH(QString, problem);
        QFETCH(QString, message);
        serveRelease(QStringLiteral("3.10.0"));
        if (problem == u"latest500")
            m_server->serve(QStringLiteral("/latest"), {500, "oops"});
        else if (problem == u"badVersion")
            m_server->serve(QStringLiteral("/latest"), "{\"version\": \"../../x\"}");
        else if (problem == u"emptyNodes")
            serveRelease(QStringLiteral("3.10.0"), metadata, "{}", "{}");
        else if (problem == u"redirectAway")
            m_server->redirect(QStringLiteral("/latest"),
                               "http://localhost:" + QByteArray::number(m_server->url().port()) +
                                   "/elsewhere");
        else if (problem == u"refused") {
            QTcpServer closed;
            QVERIFY(closed.listen(QHostAddress::LocalHost));
            const quint16 port = closed.serverPort();
            closed.close();
            qputenv("PICTRAY_LATEST_URL",
                    QByteArray("http://127.0.0.1:") + QByteArray::number(port) + "/latest");
        }
        check();
        QCOMPARE(m_updater->state().kind, Kind::failed);
        QVERIFY2(m_updater->statusText().startsWith(QStringLiteral("Couldn\u2019t update: ")),
                 qPrintable(m_updater->statusText()));
        QVERIFY2(m_updater->statusText().contains(message), qPrintable(m_updater->statusText()));
        expectUnchanged();
    }

    void aReleaseFarSmallerThanTheLoadedSetIsRefused()
    {
        std::vector<PackageConverter::OutEntry> icons;
        for (const char* name : {"a", "b", "c", "d", "e"})
            icons.push_back({QString::fromLatin1(name), {}, {}, PathList{"M1 1"}, {}});
        const QString shipped = m_dir.filePath(QStringLiteral("five.json"));
        TestData::writeFile(shipped,
                            PackageConverter::OutFile{QStringLiteral("3.9.2"), icons}.encode());
        m_library = std::make_unique<IconLibrary>(IconLibrary::Sources{shipped, downloaded()});
        m_updater = std::make_unique<IconUpdater>(*m_library);
        serveRelease(QStringLiteral("3.10.0"));
        check();
        QCOMPARE(m_updater->statusText(),
                 QStringLiteral("Couldn\u2019t update: release 3.10.0 looks damaged (2 icons)."));
        QCOMPARE(m_library->iconCount(), 5);
        QVERIFY(!QFile::exists(downloaded()));
    }

    // The whole check has a deadline, however slowly the server trickles.
    void aSilentServerMeetsTheDeadline()
    {
        m_server->serve(QStringLiteral("/latest"), FixtureHttpServer::Response{0, {}});
        m_updater->setDeadline(std::chrono::milliseconds(300));
        check();
        QCOMPARE(m_updater->state().kind, Kind::failed);
        QVERIFY2(m_updater->statusText().contains(u"waiting for an answer from "_qs +
                                                  m_server->url(u"/latest"_qs).toDisplayString()),
                 qPrintable(m_updater->statusText()));
        expectUnchanged();
    }

    void aRedirectOnTheSameServerIsFollowed()
    {
        serveRelease(QStringLiteral("3.9.2"));
        m_server->serve(QStringLiteral("/moved"), "{\"version\": \"3.9.2\"}");
        m_server->redirect(QStringLiteral("/latest"), m_server->url(u"/moved"_qs).toEncoded());
        check();
        QCOMPARE(m_updater->state().kind, Kind::upToDate);
    }
};

QTEST_GUILESS_MAIN(TestIconUpdater)
#include "tst_iconupdater.moc"
