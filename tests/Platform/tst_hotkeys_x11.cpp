#include "Base/VirtualKeys.h"
#include "Platform/HotKeyCenter.h"
#include "Platform/PlatformBackends.h"
#include "Platform/X11/X11HotKeyBackend.h"
#include "Platform/X11/X11TrayColors.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QProcess>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTest>
#include <array>
#include <cstring>
#include <xcb/xcb.h>

namespace {

const KeyCombo controlOptionI{34, 0xC0000};
const KeyCombo controlOptionC{8, 0xC0000};
const quint8 keyI = quint8(*VirtualKeys::xkbKeycode(34));
constexpr quint16 controlAlt = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
constexpr int timeout = 5000;

// A second X client, as another application holding shortcuts would be.
class RivalClient {
public:
    RivalClient() : c(xcb_connect(nullptr, nullptr))
    {
        root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    }
    ~RivalClient() { xcb_disconnect(c); }

    bool grab(quint16 modifiers)
    {
        return succeeds(xcb_grab_key_checked(c, false, root, modifiers, keyI, XCB_GRAB_MODE_ASYNC,
                                             XCB_GRAB_MODE_ASYNC));
    }
    void ungrab(quint16 modifiers) { succeeds(xcb_ungrab_key_checked(c, keyI, root, modifiers)); }
    // Takes the tray manager's selection with these colours for its icons;
    // the window goes with the connection.
    void becomeTray(const std::array<quint32, 12>& colors)
    {
        const xcb_window_t window = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, atom("_NET_SYSTEM_TRAY_COLORS"),
                            XCB_ATOM_CARDINAL, 32, colors.size(), colors.data());
        xcb_set_selection_owner(c, window, atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
        std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    }
    xcb_atom_t atom(const char* name)
    {
        auto* reply = xcb_intern_atom_reply(
            c, xcb_intern_atom(c, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr);
        const xcb_atom_t found = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
        std::free(reply);
        return found;
    }
    // Whether nobody else holds the combination; leaves it free.
    bool canGrab(quint16 modifiers)
    {
        const bool granted = grab(modifiers);
        ungrab(modifiers);
        return granted;
    }
    // Swaps the keys of two modifiers; true when the server took the new mapping.
    bool swapModifiers(int first, int second)
    {
        auto* mapping = xcb_get_modifier_mapping_reply(c, xcb_get_modifier_mapping(c), nullptr);
        if (!mapping)
            return false;
        const int perModifier = mapping->keycodes_per_modifier;
        std::vector<xcb_keycode_t> keys(xcb_get_modifier_mapping_keycodes(mapping),
                                        xcb_get_modifier_mapping_keycodes(mapping) +
                                            8 * perModifier);
        std::free(mapping);
        std::swap_ranges(keys.begin() + first * perModifier,
                         keys.begin() + (first + 1) * perModifier,
                         keys.begin() + second * perModifier);
        auto* reply = xcb_set_modifier_mapping_reply(
            c, xcb_set_modifier_mapping(c, perModifier, keys.data()), nullptr);
        const bool done = reply && reply->status == XCB_MAPPING_STATUS_SUCCESS;
        std::free(reply);
        return done;
    }

private:
    bool succeeds(xcb_void_cookie_t cookie)
    {
        xcb_generic_error_t* error = xcb_request_check(c, cookie);
        std::free(error);
        return !error;
    }

    xcb_connection_t* c;
    xcb_window_t root;
};

// The presses of the I key that reach this process, auto-repeats included.
struct PressCounter : QAbstractNativeEventFilter {
    int presses = 0;
    quint16 lastState = 0;
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        const auto* press = static_cast<xcb_key_press_event_t*>(message);
        if ((press->response_type & 0x7f) == XCB_KEY_PRESS && press->detail == keyI) {
            ++presses;
            lastState = press->state;
        }
        return false;
    }
};

bool xdotool(const QStringList& arguments)
{
    QProcess process;
    process.start(u"xdotool"_qs, arguments);
    return QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, timeout) &&
           process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

} // namespace

class TestHotKeysX11 : public QObject {
    Q_OBJECT

    std::unique_ptr<HotKeyCenter> center;
    X11HotKeyBackend* backend = nullptr;
    PressCounter counter;
    std::unique_ptr<RivalClient> rival;
    int fired = 0;
    int sentinel = 0;

    // Types the keys, then Control-Alt-C, whose action running means every
    // key event before it has been handled.
    bool type(const QStringList& keys)
    {
        const int before = sentinel;
        return xdotool(QStringList{u"key"_qs, u"--delay"_qs, u"10"_qs} + keys
                       << u"ctrl+alt+c"_qs) &&
               QTest::qWaitFor([&] { return sentinel > before; }, timeout);
    }
    bool registerI()
    {
        return center->registerHotKey(HotKeyCenter::ID::picker, controlOptionI,
                                      [this] { ++fired; });
    }

private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != u"xcb"_qs)
            QSKIP("needs an X server (DISPLAY) and the xcb platform");
        if (QStandardPaths::findExecutable(u"xdotool"_qs).isEmpty())
            QSKIP("needs xdotool");
        QVERIFY(dynamic_cast<X11HotKeyBackend*>(
            PlatformBackends::forPlatform(u"xcb"_qs).hotKeys.get()));
    }

    void init()
    {
        auto x11 = X11HotKeyBackend::create();
        backend = x11.get();
        center = std::make_unique<HotKeyCenter>(std::move(x11));
        // Installed after the backend, so it sees the presses first.
        qApp->installNativeEventFilter(&counter);
        counter.presses = 0;
        counter.lastState = 0;
        rival = std::make_unique<RivalClient>();
        fired = sentinel = 0;
        QVERIFY(center->registerHotKey(HotKeyCenter::ID::copyLast, controlOptionC,
                                       [this] { ++sentinel; }));
    }
    void cleanup()
    {
        qApp->removeNativeEventFilter(&counter);
        center.reset();
        rival.reset();
    }

    void firesOnceWhateverTheLocks_data()
    {
        QTest::addColumn<QStringList>("locks");
        QTest::newRow("no locks") << QStringList{};
        QTest::newRow("both") << QStringList{"Num_Lock", "Caps_Lock"};
    }
    void firesOnceWhateverTheLocks()
    {
        QFETCH(QStringList, locks);
        QVERIFY(registerI());
        // Each lock is toggled on before the shortcut and off again after it.
        QVERIFY(type(locks + QStringList{u"ctrl+alt+i"_qs} + locks));
        QCOMPARE(fired, 1);
        QCOMPARE(bool(counter.lastState & backend->numLockMask()), locks.contains(u"Num_Lock"));
        QCOMPARE(bool(counter.lastState & XCB_MOD_MASK_LOCK), locks.contains(u"Caps_Lock"));
    }

    void holdingFiresOnce()
    {
        QVERIFY(registerI());
        QVERIFY(xdotool({u"keydown"_qs, u"ctrl+alt+i"_qs}));
        const bool repeated = QTest::qWaitFor([&] { return counter.presses >= 3; }, timeout);
        QVERIFY(xdotool({u"keyup"_qs, u"ctrl+alt+i"_qs}));
        if (!repeated)
            QSKIP("the X server does not auto-repeat held keys");
        QVERIFY(type({}));
        QCOMPARE(fired, 1);
    }

    void suspendReleasesResumeRetakes()
    {
        QVERIFY(registerI());
        center->suspend();
        QVERIFY(rival->canGrab(controlAlt));
        // xdotool syncs with the server before it exits: this press is over
        // before the grabs come back.
        QVERIFY(xdotool({u"key"_qs, u"ctrl+alt+i"_qs}));
        center->resume();
        QVERIFY(!rival->canGrab(controlAlt));
        QVERIFY(type({u"ctrl+alt+i"_qs}));
        QCOMPARE(fired, 1);
    }

    void refusedGrabLeavesNothingHeld_data()
    {
        QTest::addColumn<bool>("numLock");
        QTest::addColumn<bool>("capsLock");
        QTest::newRow("plain") << false << false;
        QTest::newRow("both locks variant") << true << true;
    }
    void refusedGrabLeavesNothingHeld()
    {
        QFETCH(bool, numLock);
        QFETCH(bool, capsLock);
        const quint16 numLockMask = backend->numLockMask();
        QVERIFY(numLockMask != 0);
        const quint16 held = (numLock ? numLockMask : 0) | (capsLock ? XCB_MOD_MASK_LOCK : 0);
        QVERIFY(rival->grab(controlAlt | held));
        QVERIFY(!registerI());
        rival->ungrab(controlAlt | held);
        const std::array<quint16, 4> variants{0, numLockMask, XCB_MOD_MASK_LOCK,
                                              quint16(numLockMask | XCB_MOD_MASK_LOCK)};
        for (const quint16 variant : variants)
            QVERIFY2(rival->canGrab(controlAlt | variant), qPrintable(QString::number(variant)));
    }

    void trayColorsComeFromTheTrayManager()
    {
        QCOMPARE(X11TrayColors::foreground(), std::nullopt);
        rival->becomeTray({0xffff, 0x8080, 0x0000, 0xffff, 0, 0, 0, 0, 0, 0, 0, 0});
        QCOMPARE(X11TrayColors::foreground(), std::optional(QColor(255, 128, 0)));
    }

    void oneGrabPerCombination()
    {
        QVERIFY(registerI());
        QVERIFY(!center->registerHotKey(HotKeyCenter::ID::copyLast, controlOptionI, {}));
        QVERIFY(!rival->canGrab(controlAlt)); // the refusal left the first one's grab alone
        QVERIFY(xdotool({u"key"_qs, u"ctrl+alt+i"_qs}));
        QTRY_COMPARE_WITH_TIMEOUT(fired, 1, timeout);
    }

    void grabsFollowNumLockToAnotherModifier()
    {
        constexpr int mod2 = 4, mod3 = 5;
        QCOMPARE(backend->numLockMask(), quint16(XCB_MOD_MASK_2));
        QVERIFY(registerI());
        QVERIFY(rival->swapModifiers(mod2, mod3));
        const auto restore = qScopeGuard([this] { rival->swapModifiers(mod2, mod3); });
        QTRY_COMPARE_WITH_TIMEOUT(backend->numLockMask(), quint16(XCB_MOD_MASK_3), timeout);
        QVERIFY(!rival->canGrab(controlAlt | XCB_MOD_MASK_3));
        QVERIFY(rival->canGrab(controlAlt | XCB_MOD_MASK_2));
    }
};

int main(int argc, char** argv)
{
    // Without an X server start anyway, so that the tests report a skip.
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    TestHotKeysX11 test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}
#include "tst_hotkeys_x11.moc"
