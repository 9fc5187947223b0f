#include "Platform/HotKeyBackend.h"
#include "Platform/HotKeyCenter.h"

#include <QTest>
#include <set>

namespace {

// Logs what the center asks of the system and refuses the numbers it is told to.
class FakeBackend final : public HotKeyBackend {
public:
    QStringList log;
    std::set<quint32> refused;
    PressHandler press;

    void installHandler(PressHandler handler) override
    {
        log << u"install"_qs;
        press = std::move(handler);
    }
    bool registerHotKey(quint32 number, const KeyCombo& combo) override
    {
        log << u"grab %1 %2"_qs.arg(number).arg(combo.keyCode == 34 ? u"I" : u"C");
        return !refused.contains(number);
    }
    void unregisterHotKey(quint32 number) override { log << u"ungrab %1"_qs.arg(number); }
};

const KeyCombo controlOptionI{34, 0xC0000};
const KeyCombo controlOptionC{8, 0xC0000};

} // namespace

class TestHotKeyCenter : public QObject {
    Q_OBJECT

private slots:
    // Steps: "reg <number> I|C|-" (logs the result), "unreg <n>", "suspend",
    // "resume", "refuse <n>", "accept <n>".
    void registration_data()
    {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("handler once; re-register releases the old grab first")
            << QStringList{"reg 1 I", "reg 2 C", "reg 1 C"}
            << QStringList{"install", "grab 1 I", "true",     "grab 2 C",
                           "true",    "ungrab 1", "grab 1 C", "true"};
        QTest::newRow("no combination turns the hot key off")
            << QStringList{"reg 1 I", "reg 1 -", "suspend", "resume"}
            << QStringList{"install", "grab 1 I", "true", "ungrab 1", "true"};
        QTest::newRow("refused stays wanted, resume retries")
            << QStringList{"refuse 1", "reg 1 I", "unreg 1", "suspend", "accept 1", "resume"}
            << QStringList{"install", "grab 1 I", "false", "grab 1 I"};
        QTest::newRow("while suspended: stored, grabbed on resume")
            << QStringList{"suspend", "reg 1 I", "resume"}
            << QStringList{"install", "true", "grab 1 I"};
        QTest::newRow("suspend and resume are idempotent")
            << QStringList{"reg 1 I", "resume", "suspend", "suspend", "resume", "resume"}
            << QStringList{"install", "grab 1 I", "true", "ungrab 1", "grab 1 I"};
        QTest::newRow("unregister keeps the combination; resume skips a refusal")
            << QStringList{"reg 1 I", "reg 2 C",  "unreg 2", "unreg 2",
                           "suspend", "refuse 1", "resume"}
            << QStringList{"install",  "grab 1 I", "true",     "grab 2 C", "true",
                           "ungrab 2", "ungrab 1", "grab 1 I", "grab 2 C"};
    }
    void registration()
    {
        QFETCH(QStringList, steps);
        auto backend = std::make_unique<FakeBackend>();
        FakeBackend& fake = *backend;
        HotKeyCenter center(std::move(backend));
        for (const QString& step : std::as_const(steps)) {
            const QStringList words = step.split(u' ');
            const auto id = HotKeyCenter::ID(words.value(1).toUInt());
            if (words[0] == u"reg") {
                const auto combo = words[2] == u"I"   ? std::optional(controlOptionI)
                                   : words[2] == u"C" ? std::optional(controlOptionC)
                                                      : std::nullopt;
                const bool result = center.registerHotKey(id, combo, [] {});
                fake.log << (result ? u"true"_qs : u"false"_qs);
            } else if (words[0] == u"unreg") {
                center.unregister(id);
            } else if (words[0] == u"suspend") {
                center.suspend();
            } else if (words[0] == u"resume") {
                center.resume();
            } else if (words[0] == u"refuse") {
                fake.refused.insert(quint32(id));
            } else if (words[0] == u"accept") {
                fake.refused.erase(quint32(id));
            }
        }
        QTEST(fake.log, "expected");
    }

    void pressRunsTheCurrentActionLater()
    {
        auto backend = std::make_unique<FakeBackend>();
        FakeBackend& fake = *backend;
        HotKeyCenter center(std::move(backend));
        QStringList ran;
        center.registerHotKey(HotKeyCenter::ID::picker, controlOptionI, [&] { ran << u"old"_qs; });

        fake.press(1);
        fake.press(2);          // no action for this number
        QVERIFY(ran.isEmpty()); // never inside the event handler
        // Re-registering from inside the action must not destroy the running action.
        center.registerHotKey(HotKeyCenter::ID::picker, controlOptionI, [&] {
            ran << u"new"_qs;
            center.registerHotKey(HotKeyCenter::ID::picker, controlOptionC, {});
        });
        QTRY_COMPARE(ran, QStringList{u"new"_qs});

        fake.press(1); // the empty action now bound does nothing
        QCoreApplication::processEvents();
        QCOMPARE(ran, QStringList{u"new"_qs});
    }
};

QTEST_MAIN(TestHotKeyCenter)
#include "tst_hotkeycenter.moc"
