#include "App/Instance/SingleInstance.h"
#include "PictrayProcess.h"

#include <QLocalSocket>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>
#include <future>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
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

sockaddr_un addressOf(const QString& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray bytes = QFile::encodeName(path);
    std::memcpy(address.sun_path, bytes.constData(), bytes.size());
    return address;
}

// What a crashed instance leaves: a socket file nobody listens on.
bool makeStaleSocket(const QString& path)
{
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const sockaddr_un address = addressOf(path);
    const bool bound = ::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(fd);
    return bound && QFile::exists(path);
}

constexpr uid_t nobody = 65534;

// Runs `work` in a child process as another user; its exit status is
// what `work` returns. The child uses plain system calls only.
pid_t asNobody(const std::function<int()>& work)
{
    const pid_t pid = ::fork();
    if (pid == 0) {
        const bool dropped = ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
        ::_exit(dropped ? work() : 99);
    }
    return pid;
}

int exitStatusOf(pid_t pid)
{
    int status = 0;
    return ::waitpid(pid, &status, 0) == pid && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
        QTest::newRow("show favorites") << QByteArray("show favorites\n") << true;
        QTest::newRow("copy-last") << QByteArray("copy-last\n") << true;
        QTest::newRow("unknown tab") << QByteArray("show category:Arrows\n") << false;
        QTest::newRow("extra word") << QByteArray("toggle now\n") << false;
    }

    void requestsSurviveTheWire()
    {
        QFETCH(QByteArray, line);
        const auto request = InstanceRequest::decode(line);
        QTEST(request.has_value(), "valid");
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

    void repliesArePrintedAsText_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("message");
        QTest::newRow("terminal title and clear")
            << QByteArray("error \x1b]0;owned\x07\x1b[2JGone\n") << u"]0;owned[2JGone"_qs;
        QTest::newRow("direction override") << QByteArray("error a\xe2\x80\xae"
                                                          "b\rc\n")
                                            << u"abc"_qs;
    }
    void repliesArePrintedAsText()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, message);
        const InstanceReply reply = InstanceReply::decode(line);
        QVERIFY(!reply.ok);
        QCOMPARE(reply.message, message);
    }

    // Without a runtime folder, the socket and its lock go only where no
    // other user can be first.
    void socketFolderIsPrivate_data()
    {
        QTest::addColumn<QString>("planted"); // as pictray-<uid> in the temporary folder
        QTest::newRow("nothing") << QString();
        QTest::newRow("a folder open to others") << u"open"_qs;
        QTest::newRow("a link") << u"link"_qs;
        if (::getuid() == 0) // only an administrator can give a folder away
            QTest::newRow("a folder of another user") << u"foreign"_qs;
    }
    void socketFolderIsPrivate()
    {
        QFETCH(QString, planted);
        QTemporaryDir dir;
        const QString folder = dir.filePath(u"pictray-%1"_qs.arg(::getuid()));
        if (planted == u"link")
            QVERIFY(QFile::link(dir.path(), folder));
        else if (!planted.isEmpty())
            QVERIFY(QDir().mkdir(folder));
        if (planted == u"open")
            QVERIFY(QFile::setPermissions(folder, QFileDevice::Permissions(0x7777)));
        if (planted == u"foreign")
            QCOMPARE(::chown(QFile::encodeName(folder).constData(), nobody, nobody), 0);
        PictrayProcess pictray;
        pictray.environment().insert("TMPDIR", dir.path());
        pictray.environment().remove("XDG_RUNTIME_DIR");
        const auto toggle = pictray.run({"toggle"});
        QCOMPARE(toggle.exitCode, 1);
        if (planted.isEmpty()) {
            QVERIFY2(toggle.err.contains("not running"), toggle.err.constData());
            QCOMPARE(QFileInfo(folder).permissions() & 0x0077, 0);
            return;
        }
        QVERIFY2(toggle.err.contains("not a folder only you can enter"), toggle.err.constData());
        // Nor does the tray start, or take a planted lock for another instance.
        const auto tray = pictray.run({});
        QCOMPARE(tray.exitCode, 1);
        QVERIFY2(tray.err.contains(QFile::encodeName(folder)), tray.err.constData());
    }

    void clientRefusesAnotherUsersServer()
    {
        if (::getuid() != 0)
            QSKIP("acting as a second user needs root");
        QTemporaryDir dir;
        QVERIFY(QFile::setPermissions(dir.path(), QFileDevice::Permissions(0x7777)));
        const QString name = dir.filePath("pictray.socket");
        const sockaddr_un address = addressOf(name);
        const pid_t impostor = asNobody([&] {
            const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
            if (::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
                ::listen(fd, 4) != 0)
                return 1;
            for (;;) {
                const int client = ::accept(fd, nullptr, nullptr);
                static constexpr char answer[] = "ok\n";
                [[maybe_unused]] auto written = ::write(client, answer, sizeof answer - 1);
                ::close(client);
            }
        });
        auto cleanup = qScopeGuard([&] {
            ::kill(impostor, SIGKILL);
            exitStatusOf(impostor);
        });
        QTRY_VERIFY(QFile::exists(name));
        InstanceReply reply;
        QCOMPARE(SingleInstance::send(name, {InstanceRequest::Kind::toggle, {}}, &reply, 2000),
                 SingleInstance::SendResult::notOurs);
    }

    void serverIgnoresAnotherUser()
    {
        if (::getuid() != 0)
            QSKIP("acting as a second user needs root");
        QTemporaryDir dir;
        QVERIFY(QFile::setPermissions(dir.path(), QFileDevice::Permissions(0x7755)));
        const QString name = dir.filePath("pictray.socket");
        SingleInstance instance(name);
        int handled = 0;
        QVERIFY(instance.listen([&](const InstanceRequest&) {
            ++handled;
            return InstanceReply{};
        }));
        // Only root could open the socket to others; the check must not rely on it.
        QVERIFY(QFile::setPermissions(name, QFileDevice::Permissions(0x7777)));
        const sockaddr_un address = addressOf(name);
        const pid_t other = asNobody([&] {
            const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
            if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
                return 2;
            [[maybe_unused]] auto written = ::write(fd, "toggle\n", 7);
            char answer[64];
            return ::read(fd, answer, sizeof answer) <= 0 ? 0 : 1; // closed, not answered
        });
        int status = 0;
        bool exited = false; // the check runs again after the wait: reap only once
        QTRY_VERIFY(exited || (exited = ::waitpid(other, &status, WNOHANG) == other));
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 0);
        QCOMPARE(handled, 0);
    }

    // Connections that say nothing cannot use up the instance: they are
    // dropped after the idle time, and past the cap the oldest goes.
    void silentConnectionsAreDropped_data()
    {
        QTest::addColumn<int>("idleMs");
        QTest::addColumn<int>("cap");
        QTest::addColumn<int>("left"); // connections still open before the idle time ends
        QTest::newRow("idle time") << 20 << 100 << 0;
        QTest::newRow("cap") << 3'600'000 << 4 << 4;
    }
    void silentConnectionsAreDropped()
    {
        QFETCH(int, idleMs);
        QFETCH(int, cap);
        QFETCH(int, left);
        QTemporaryDir dir;
        const QString name = dir.filePath("pictray.socket");
        SingleInstance instance(name);
        instance.setLimits({std::chrono::milliseconds(idleMs), cap, std::chrono::hours(1)});
        QVERIFY(instance.listen([](const InstanceRequest&) { return InstanceReply{}; }));
        std::vector<std::unique_ptr<QLocalSocket>> silent;
        for (int i = 0; i < 10; ++i) {
            silent.push_back(std::make_unique<QLocalSocket>());
            silent.back()->connectToServer(name);
        }
        const auto stillOpen = [&] {
            return std::ranges::count_if(silent, [](const auto& socket) {
                return socket->state() == QLocalSocket::ConnectedState;
            });
        };
        QTRY_COMPARE(stillOpen(), left);
        QTRY_COMPARE(instance.openConnections(), left);
        auto result = sendAsync(name, {}, nullptr);
        QTRY_VERIFY(ready(result));
        QCOMPARE(result.get(), SingleInstance::SendResult::answered);
    }

    void listensAgainWhenTheSocketGoes()
    {
        QTemporaryDir dir;
        const QString name = dir.filePath("pictray.socket");
        SingleInstance instance(name);
        instance.setLimits({std::chrono::seconds(1), 32, std::chrono::milliseconds(10)});
        QVERIFY(instance.listen([](const InstanceRequest&) { return InstanceReply{}; }));
        QVERIFY(QFile::remove(name)); // as a cleaner of the temporary folder would
        QTRY_VERIFY(QFile::exists(name));
        auto result = sendAsync(name, {}, nullptr);
        QTRY_VERIFY(ready(result));
        QCOMPARE(result.get(), SingleInstance::SendResult::answered);
    }
};

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
