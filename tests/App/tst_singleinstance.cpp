#include "App/Instance/SingleInstance.h"
#include "PictrayProcess.h"

#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <future>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// A client runs on its own thread, so the server's event loop here answers it.
std::future<SingleInstance::SendResult>
sendAsync(const QString& name, const InstanceRequest& request, InstanceReply* reply)
{
    return std::async(std::launch::async,
                      [=] { return SingleInstance::send(name, request, reply, 2000); });
}

bool ready(const std::future<SingleInstance::SendResult>& future)
{
    return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

// What a crashed instance leaves: a socket file nobody listens on.
bool makeStaleSocket(const QString& path)
{
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray bytes = path.toLocal8Bit();
    std::memcpy(address.sun_path, bytes.constData(), bytes.size());
    const bool bound = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    ::close(fd);
    return bound && QFile::exists(path);
}

} // namespace

class TestSingleInstance : public QObject {
    Q_OBJECT

private slots:
    void requestsSurviveTheWire_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<bool>("valid");
        QTest::newRow("reopen") << QByteArray("reopen\n") << true;
        QTest::newRow("toggle") << QByteArray("toggle\n") << true;
        QTest::newRow("show") << QByteArray("show\n") << true;
        QTest::newRow("show favorites") << QByteArray("show favorites\n") << true;
        QTest::newRow("copy-last") << QByteArray("copy-last\n") << true;
        QTest::newRow("unknown tab") << QByteArray("show category:Arrows\n") << false;
        QTest::newRow("extra word") << QByteArray("toggle now\n") << false;
        QTest::newRow("empty") << QByteArray("\n") << false;
    }

    void requestsSurviveTheWire()
    {
        QFETCH(QByteArray, line);
        QFETCH(bool, valid);
        const auto request = InstanceRequest::decode(line);
        QCOMPARE(request.has_value(), valid);
        if (request)
            QCOMPARE(request->encode(), line);
    }

    void secondClientReachesTheServer()
    {
        QTemporaryDir dir;
        const QString name = dir.filePath("pictray.socket");
        SingleInstance first(name);
        QList<InstanceRequest::Kind> handled;
        std::optional<PickerTab> tab;
        QVERIFY(first.listen([&](const InstanceRequest& request) {
            handled.append(request.kind);
            tab = request.tab;
            return request.kind == InstanceRequest::Kind::copyLast
                       ? InstanceReply{false, "Nothing has been copied yet."}
                       : InstanceReply{};
        }));
        // Only one instance per name.
        SingleInstance second(name);
        QVERIFY(!second.acquire());

        InstanceReply reply;
        auto result = sendAsync(name, {InstanceRequest::Kind::show, PickerTab::recents()}, &reply);
        QTRY_VERIFY(ready(result));
        QCOMPARE(result.get(), SingleInstance::SendResult::answered);
        QVERIFY(reply.ok);
        QCOMPARE(tab, std::optional(PickerTab::recents()));

        result = sendAsync(name, {InstanceRequest::Kind::copyLast, std::nullopt}, &reply);
        QTRY_VERIFY(ready(result));
        QCOMPARE(result.get(), SingleInstance::SendResult::answered);
        QVERIFY(!reply.ok);
        QCOMPARE(reply.message, QString("Nothing has been copied yet."));
        QCOMPARE(handled, (QList{InstanceRequest::Kind::show, InstanceRequest::Kind::copyLast}));
    }

    void staleSocketIsRecovered()
    {
        QTemporaryDir dir;
        const QString name = dir.filePath("pictray.socket");
        QVERIFY(makeStaleSocket(name));
        QCOMPARE(SingleInstance::send(name, {}, nullptr, 500),
                 SingleInstance::SendResult::notRunning);

        SingleInstance instance(name);
        int reopened = 0;
        QVERIFY(instance.listen([&](const InstanceRequest&) {
            ++reopened;
            return InstanceReply{};
        }));
        auto result = sendAsync(name, {}, nullptr);
        QTRY_VERIFY(ready(result));
        QCOMPARE(result.get(), SingleInstance::SendResult::answered);
        QCOMPARE(reopened, 1);
    }

    void commandsNeedARunningInstance_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::newRow("toggle") << QStringList{"toggle"};
        QTest::newRow("show") << QStringList{"show", "--tab", "favorites"};
        QTest::newRow("copy-last") << QStringList{"copy-last"};
    }

    void commandsNeedARunningInstance()
    {
        QFETCH(QStringList, args);
        const PictrayProcess pictray;
        const auto result = pictray.run(args);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.contains("Pictray is not running."), result.err.constData());
    }

    // The real tray program on the offscreen platform: no tray there, so it
    // also shows that the program keeps serving without one.
    void runningInstanceAnswers()
    {
        PictrayProcess pictray;
        pictray.environment().insert("QT_QUICK_BACKEND", "software");
        QProcess tray;
        tray.setProcessEnvironment(pictray.environment());
        tray.start(qEnvironmentVariable("PICTRAY_BINARY"), {});
        QVERIFY(tray.waitForStarted());
        auto cleanup = qScopeGuard([&] {
            tray.kill();
            tray.waitForFinished();
        });
        QTRY_COMPARE_WITH_TIMEOUT(pictray.run({"toggle"}).exitCode, 0, 15000);
        QCOMPARE(pictray.run({"show", "--tab", "recents"}).exitCode, 0);
        const auto copyLast = pictray.run({"copy-last"});
        QCOMPARE(copyLast.exitCode, 1);
        QVERIFY2(copyLast.err.contains("Nothing has been copied yet."), copyLast.err.constData());
        // Started again: asks the first to come forward and leaves.
        QCOMPARE(pictray.run({}).exitCode, 0);
        QCOMPARE(tray.state(), QProcess::Running);
        QCOMPARE(pictray.run({"show", "--tab", "nowhere"}).exitCode, 2);
    }
};

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
