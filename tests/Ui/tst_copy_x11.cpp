#include "Catalog/IconLibrary.h"
#include "Catalog/PackageConverter.h"
#include "Export/CopyService.h"
#include "Export/SnippetBuilder.h"
#include "Platform/X11/X11Paster.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"
#include "Ui/HUD.h"
#include "Ui/QtClipboard.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QProcess>
#include <QRasterWindow>
#include <QScreen>
#include <QStandardPaths>
#include <QTemporaryDir>
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
        QTest::qWait(10);
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

} // namespace

class TestCopyX11 : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    std::unique_ptr<SettingsStore> store;
    std::unique_ptr<Preferences> prefs;
    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<UserLibrary> user;
    QtClipboard clipboard;
    std::unique_ptr<HUD> hud;
    std::unique_ptr<X11Paster> paster;
    std::unique_ptr<CopyService> service;

    IconExport home() { return {library->icon(u"home"), {}, 24, 2, u"currentColor"_qs}; }

private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != u"xcb")
            QSKIP("needs an X server (run under xvfb-run)");
        if (QStandardPaths::findExecutable(u"xclip"_qs).isEmpty())
            QSKIP("needs xclip");
        QFile file(dir.filePath(u"catalogue.json"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            PackageConverter::OutFile{"1", {{u"home"_qs, u"B"_qs, {}, PathList{"M2 12h20"}, {}}}}
                .encode());
        file.close();
        store = std::make_unique<SettingsStore>(dir.filePath(u"settings.conf"_qs));
        prefs = std::make_unique<Preferences>(*store);
        prefs->setClassAttribute(u"icon \u2713"_qs); // text beyond ASCII
        prefs->setPngPadding(0);
        library = std::make_unique<IconLibrary>(IconLibrary::Sources{file.fileName(), {}});
        user = std::make_unique<UserLibrary>(*store, *prefs, [](const QString&) { return true; });
        hud = std::make_unique<HUD>();
        paster = std::make_unique<X11Paster>();
        service = std::make_unique<CopyService>(*library, *user, *prefs, clipboard, *hud, *paster);
    }

    void otherApplicationsReadTheCopy_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<QString>("target");
        QTest::addColumn<int>("pixels"); // 0: text
        QTest::newRow("svg text/plain") << ExportFormat::svg << u"text/plain"_qs << 0;
        QTest::newRow("jsx UTF8_STRING") << ExportFormat::jsx << u"UTF8_STRING"_qs << 0;
        QTest::newRow("png2") << ExportFormat::png2 << u"image/png"_qs << 48;
        QTest::newRow("png3") << ExportFormat::png3 << u"image/png"_qs << 72;
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
            QCOMPARE(read, SnippetBuilder::current(*prefs).text(format, home()).toUtf8());
        else
            QCOMPARE(QImage::fromData(read, "PNG").size(), QSize(pixels, pixels));
    }

    void hudShowsThenFadesAndCloses()
    {
        QVERIFY(service->copy(home(), ExportFormat::svg));
        QVERIFY(QTest::qWaitForWindowExposed(hud.get()));
        QCOMPARE(hud->message(), u"Copied home as Raw SVG"_qs);
        const QRect screen = hud->screen()->availableGeometry();
        QVERIFY(screen.contains(hud->geometry()));
        if (const QString shot = qEnvironmentVariable("PICTRAY_HUD_SCREENSHOT"); !shot.isEmpty())
            QVERIFY(hud->screen()->grabWindow(0).save(shot));

        // A second message replaces the first and restarts the clock.
        QTest::qWait(1000);
        QVERIFY(service->copy(home(), ExportFormat::png1));
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(hud->message(), u"Copied home as PNG @1x"_qs);
        QTest::qWait(HUD::holdMs - 200);
        QVERIFY(hud->isVisible());
        QCOMPARE(hud->opacity(), 1.0);
        QTRY_VERIFY_WITH_TIMEOUT(!hud->isVisible(), 3000);
        QVERIFY2(clock.elapsed() >= HUD::holdMs + HUD::fadeMs - 50 &&
                     clock.elapsed() < HUD::holdMs + HUD::fadeMs + 600,
                 qPrintable(QString::number(clock.elapsed())));
    }

    void pasteGoesToTheRememberedWindowAfterTheModifiers()
    {
        QVERIFY(paster->isTrusted());
        KeyRecorder editor, picker;
        QVERIFY(editor.activate());
        paster->rememberTarget();
        QVERIFY(picker.activate()); // takes the keyboard as the picker panel would
        picker.hide();

        QVERIFY(service->pasteIntoFrontApp());
        QTest::qWait(60); // within the 0.12 s delay
        QVERIFY(editor.keys.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(editor.keys.contains(ctrlV), 2000);
        QVERIFY(picker.keys.isEmpty());

        if (QStandardPaths::findExecutable(u"xdotool"_qs).isEmpty())
            QSKIP("needs xdotool to hold a modifier");
        editor.keys.clear();
        run(u"xdotool"_qs, {u"keydown"_qs, u"Alt_L"_qs}); // the shortcut is still held
        paster->paste();
        QTest::qWait(300);
        QVERIFY(!editor.keys.contains(ctrlV));
        run(u"xdotool"_qs, {u"keyup"_qs, u"Alt_L"_qs});
        QTRY_VERIFY_WITH_TIMEOUT(editor.keys.contains(ctrlV), 1000);
    }
};

QTEST_MAIN(TestCopyX11)
#include "tst_copy_x11.moc"
