#include "Export/SnippetBuilder.h"
#include "PickerFixture.h"
#include "Platform/X11/X11Paster.h"
#include "Ui/HUD.h"
#include "Ui/QtClipboard.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QProcess>
#include <QRasterWindow>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

namespace {

// Runs a helper while this process keeps its event loop, and so the X
// selection it owns, alive.
QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const QDeadlineTimer deadline(5000);
    while (process.state() != QProcess::NotRunning && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    process.kill();
    process.waitForFinished();
    return process.readAllStandardOutput();
}

// Stands in for the editor the user pastes into.
struct KeyRecorder : QRasterWindow {
    QList<QKeyCombination> keys;
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->keyCombination()); }
    bool activate()
    {
        show();
        requestActivate();
        return QTest::qWaitForWindowActive(this);
    }
};

const QKeyCombination ctrlV(Qt::ControlModifier, Qt::Key_V);

// The course of a window's opacity told by its turns, as "0 up 1 down 0".
QString course(const QList<qreal>& values)
{
    QStringList turns;
    int direction = 0;
    for (qsizetype i = 1; i < values.size(); ++i) {
        const int step = values[i] > values[i - 1] ? 1 : values[i] < values[i - 1] ? -1 : 0;
        if (step != 0 && step != direction) {
            turns << QString::number(values[i - 1]) << (step > 0 ? u"up"_qs : u"down"_qs);
            direction = step;
        }
    }
    if (!values.isEmpty())
        turns << QString::number(values.last());
    return turns.join(u' ');
}

} // namespace

class TestCopyX11 : public QObject {
    Q_OBJECT

    std::unique_ptr<PickerFixture> f;
    QtClipboard clipboard;
    std::unique_ptr<HUD> hud;
    std::unique_ptr<X11Paster> paster;
    std::unique_ptr<CopyService> service;

    IconExport home() { return {f->library->icon(u"home"), {}, 24, 2, u"currentColor"_qs}; }

private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != u"xcb")
            QSKIP("needs an X server (run under xvfb-run)");
        if (QStandardPaths::findExecutable(u"xclip"_qs).isEmpty())
            QSKIP("needs xclip");
        f = std::make_unique<PickerFixture>(std::vector<PackageConverter::OutEntry>{
            {u"home"_qs, u"B"_qs, {}, PathList{"M2 12h20"}, {}}});
        f->prefs.setClassAttribute(u"icon \u2713"_qs); // text beyond ASCII
        f->prefs.setPngPadding(0);
        hud = std::make_unique<HUD>();
        paster = std::make_unique<X11Paster>();
        service = std::make_unique<CopyService>(*f->library, *f->user, f->prefs, clipboard, *hud,
                                                *paster);
    }

    void otherApplicationsReadTheCopy_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<QString>("target");
        QTest::addColumn<int>("pixels"); // 0: text
        QTest::newRow("svg text/plain") << ExportFormat::svg << u"text/plain"_qs << 0;
        QTest::newRow("png2") << ExportFormat::png2 << u"image/png"_qs << 48;
    }
    void otherApplicationsReadTheCopy()
    {
        QFETCH(ExportFormat, format);
        QFETCH(QString, target);
        QFETCH(int, pixels);
        QVERIFY(service->copy(home(), format));
        const QByteArray read =
            run(u"xclip"_qs, {u"-selection"_qs, u"clipboard"_qs, u"-t"_qs, target, u"-o"_qs});
        if (pixels == 0)
            QCOMPARE(read, SnippetBuilder::current(f->prefs).text(format, home()).toUtf8());
        else
            QCOMPARE(QImage::fromData(read, "PNG").size(), QSize(pixels, pixels));
    }

    void copyShowsTheHUDOnScreen()
    {
        QVERIFY(service->copy(home(), ExportFormat::svg));
        QVERIFY(QTest::qWaitForWindowExposed(hud.get()));
        QCOMPARE(hud->message(), u"Copied home as Raw SVG"_qs);
        QVERIFY(hud->screen()->availableGeometry().contains(hud->geometry()));
        if (const QString shot = qEnvironmentVariable("PICTRAY_HUD_SCREENSHOT"); !shot.isEmpty()) {
            QTRY_COMPARE(hud->opacity(), 1.0);
            QVERIFY(hud->screen()->grabWindow(0).save(shot));
        }
    }

    // The times are short: the order of the steps is what counts.
    void hudFadesInHoldsFadesOutAndCloses()
    {
        HUD message;
        message.setTiming({40, 40, 40});
        message.create();
        QList<qreal> opacities;
        connect(&message, &QWindow::opacityChanged, this, [&](qreal value) { opacities << value; });
        message.show(u"first"_qs);
        QCOMPARE(message.opacity(), 0.0);
        QTRY_VERIFY(!message.isVisible());
        QCOMPARE(course(opacities), u"0 up 1 down 0"_qs);
        // A second message while the first fades out comes back from where it is.
        bool replaced = false;
        connect(&message, &QWindow::opacityChanged, this, [&](qreal value) {
            if (!replaced && value < 1 && opacities.count(1.0) == 2) {
                replaced = true;
                QMetaObject::invokeMethod(
                    &message, [&] { message.show(u"second"_qs); }, Qt::QueuedConnection);
            }
        });
        message.show(u"first"_qs);
        QTRY_VERIFY(replaced);
        QTRY_VERIFY(!message.isVisible());
        QCOMPARE(message.message(), u"second"_qs);
        QVERIFY2(QRegularExpression(u"^0 up 1 down 0 up 1 down 0\\.\\d+ up 1 down 0$"_qs)
                     .match(course(opacities))
                     .hasMatch(),
                 qPrintable(course(opacities)));
    }

    void pasteGoesToTheRememberedWindowAfterTheModifiers()
    {
        QVERIFY(paster->isTrusted());
        KeyRecorder editor, picker;
        QVERIFY(editor.activate());
        paster->rememberTarget();
        QVERIFY(picker.activate()); // takes the keyboard as the picker panel would
        picker.hide();

        std::function<void()> pending;
        service->setPasteScheduler([&](std::function<void()> paste) { pending = paste; });
        QVERIFY(service->pasteIntoFrontApp());
        QVERIFY(pending); // later, once the panel is gone
        pending();
        QTRY_VERIFY_WITH_TIMEOUT(editor.keys.contains(ctrlV), 2000);
        QVERIFY(picker.keys.isEmpty());

        if (QStandardPaths::findExecutable(u"xdotool"_qs).isEmpty())
            QSKIP("needs xdotool to hold a modifier");
        editor.keys.clear();
        const QSignalSpy pasted(paster.get(), &X11Paster::pasted);
        run(u"xdotool"_qs, {u"keydown"_qs, u"Alt_L"_qs}); // the shortcut is still held
        paster->paste();
        QVERIFY(pasted.isEmpty()); // nothing sent while Alt is down
        run(u"xdotool"_qs, {u"keyup"_qs, u"Alt_L"_qs});
        QTRY_COMPARE_WITH_TIMEOUT(pasted.size(), 1, 1000);
        QTRY_VERIFY_WITH_TIMEOUT(editor.keys.contains(ctrlV), 1000);
    }
};

QTEST_MAIN(TestCopyX11)
#include "tst_copy_x11.moc"
