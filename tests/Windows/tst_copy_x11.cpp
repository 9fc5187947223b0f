#include "Catalog/IconLibrary.h"
#include "Catalog/PackageConverter.h"
#include "Export/CopyService.h"
#include "Export/SnippetBuilder.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"
#include "Windows/HUD.h"
#include "Windows/QtClipboard.h"
#include "Windows/X11Paster.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QProcess>
#include <QRasterWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Runs a helper program while this process keeps serving the X selection.
QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const QDeadlineTimer deadline(5000);
    while (process.state() != QProcess::NotRunning && !deadline.hasExpired())
        QTest::qWait(10);
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
    return process.readAllStandardOutput();
}

QByteArray clipboardAs(const QString& target)
{
    return run(u"xclip"_qs, {u"-selection"_qs, u"clipboard"_qs, u"-t"_qs, target, u"-o"_qs});
}

// A window that notes the keys it receives, standing in for a text editor.
struct KeyRecorder : QRasterWindow {
    QList<QKeyCombination> keys;
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->keyCombination()); }
};

bool activate(QWindow& window)
{
    window.show();
    window.requestActivate();
    return QTest::qWaitForWindowActive(&window);
}

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

    IconExport exportOf(const QString& name)
    {
        return {library->icon(name), IconStyle::outline, 24, 2, u"currentColor"_qs};
    }

private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != u"xcb")
            QSKIP("needs an X server (run under xvfb-run)");
        if (QStandardPaths::findExecutable(u"xclip"_qs).isEmpty())
            QSKIP("needs xclip");
        QFile file(dir.filePath(u"catalogue.json"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const PathList line{"M2 12h20"};
        file.write(
            PackageConverter::OutFile{"1.0",
                                      {{u"home"_qs, u"Buildings"_qs, {}, line, std::nullopt},
                                       {u"caf\u00e9-cup"_qs, u"Food"_qs, {}, line, std::nullopt}}}
                .encode());
        file.close();
        store = std::make_unique<SettingsStore>(dir.filePath(u"settings.conf"_qs));
        prefs = std::make_unique<Preferences>(*store);
        library = std::make_unique<IconLibrary>(IconLibrary::Sources{file.fileName(), {}});
        user = std::make_unique<UserLibrary>(*store, *prefs, [](const QString&) { return true; });
        hud = std::make_unique<HUD>();
        paster = std::make_unique<X11Paster>();
        service = std::make_unique<CopyService>(*library, *user, *prefs, clipboard, *hud, *paster);
    }

    void textReachesOtherApplications_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<QString>("target");
        QTest::newRow("svg text/plain") << ExportFormat::svg << u"text/plain"_qs;
        QTest::newRow("jsx UTF8_STRING") << ExportFormat::jsx << u"UTF8_STRING"_qs;
        QTest::newRow("vue text/plain") << ExportFormat::vue << u"text/plain"_qs;
    }
    void textReachesOtherApplications()
    {
        QFETCH(ExportFormat, format);
        QFETCH(QString, target);
        prefs->setClassAttribute(u"icon {name} \u2713"_qs); // text beyond ASCII
        const IconExport item = exportOf(u"caf\u00e9-cup"_qs);
        QVERIFY(service->copy(item, format));
        const QByteArray expected = SnippetBuilder::current(*prefs).text(format, item).toUtf8();
        QVERIFY(expected.contains("\xe2\x9c\x93"));
        QCOMPARE(clipboardAs(target), expected);
    }

    void pngReachesOtherApplications_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<int>("pixels");
        QTest::newRow("png2") << ExportFormat::png2 << 48;
        QTest::newRow("png3") << ExportFormat::png3 << 72;
    }
    void pngReachesOtherApplications()
    {
        QFETCH(ExportFormat, format);
        QFETCH(int, pixels);
        prefs->setPngPadding(0);
        QVERIFY(service->copy(exportOf(u"home"_qs), format));
        const QImage image = QImage::fromData(clipboardAs(u"image/png"_qs), "PNG");
        QCOMPARE(image.size(), QSize(pixels, pixels));
        QCOMPARE(image.pixel(pixels / 2, pixels / 2), qRgba(0, 0, 0, 255));
        QVERIFY(clipboardAs(u"TARGETS"_qs).contains("image/png"));
    }

    void hudShowsThenFadesAndCloses()
    {
        QVERIFY(service->copy(exportOf(u"home"_qs), ExportFormat::svg));
        QElapsedTimer clock;
        clock.start();
        QVERIFY(hud->isVisible());
        QCOMPARE(hud->message(), u"Copied home as Raw SVG"_qs);
        QVERIFY(
            hud->flags().testFlags(Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus));
        QVERIFY(QTest::qWaitForWindowExposed(hud.get()));
        const QRect screen = hud->screen()->availableGeometry();
        QVERIFY(screen.contains(hud->geometry()));
        QCOMPARE(hud->geometry().center().x(), screen.center().x());
        if (const QString shot = qEnvironmentVariable("PICTRAY_HUD_SCREENSHOT"); !shot.isEmpty()) {
            QTest::qWait(100);
            QVERIFY(hud->screen()->grabWindow(0).save(shot));
        }

        // A second message replaces the first and restarts the clock.
        QTest::qWait(1000);
        QVERIFY(service->copy(exportOf(u"home"_qs), ExportFormat::png1));
        clock.restart();
        QCOMPARE(hud->message(), u"Copied home as PNG @1x"_qs);
        QTest::qWait(HUD::holdMs - 200);
        QVERIFY(hud->isVisible());
        QCOMPARE(hud->opacity(), 1.0);
        QTRY_VERIFY_WITH_TIMEOUT(!hud->isVisible(), 3000);
        QVERIFY2(clock.elapsed() >= HUD::holdMs + HUD::fadeMs - 50 &&
                     clock.elapsed() < HUD::holdMs + HUD::fadeMs + 600,
                 qPrintable(QString::number(clock.elapsed())));
    }

    void pasteGoesToTheRememberedWindow()
    {
        QVERIFY(paster->isTrusted());
        KeyRecorder editor;
        editor.setGeometry(100, 100, 200, 100);
        QVERIFY(activate(editor));
        paster->rememberTarget();
        QCOMPARE(paster->target(), static_cast<uint32_t>(editor.winId()));

        KeyRecorder picker; // takes the keyboard as the picker panel would
        picker.setGeometry(400, 100, 200, 100);
        QVERIFY(activate(picker));
        picker.hide();

        QVERIFY(service->pasteIntoFrontApp());
        QTest::qWait(60);
        QVERIFY(editor.keys.isEmpty()); // still within the 0.12 s delay
        QTRY_VERIFY_WITH_TIMEOUT(
            editor.keys.contains(QKeyCombination(Qt::ControlModifier, Qt::Key_V)), 2000);
        QVERIFY(picker.keys.isEmpty());
    }

    void pasteWaitsForTheShortcutsModifiers()
    {
        if (QStandardPaths::findExecutable(u"xdotool"_qs).isEmpty())
            QSKIP("needs xdotool to hold a key");
        KeyRecorder editor;
        QVERIFY(activate(editor));
        paster->rememberTarget();
        QSignalSpy pasted(paster.get(), &X11Paster::pasted);
        run(u"xdotool"_qs, {u"keydown"_qs, u"Alt_L"_qs});
        paster->paste();
        QTest::qWait(300);
        QCOMPARE(pasted.size(), 0);
        run(u"xdotool"_qs, {u"keyup"_qs, u"Alt_L"_qs});
        QTRY_COMPARE_WITH_TIMEOUT(pasted.size(), 1, 1000);
        QTRY_VERIFY(editor.keys.contains(QKeyCombination(Qt::ControlModifier, Qt::Key_V)));
    }
};

QTEST_MAIN(TestCopyX11)
#include "tst_copy_x11.moc"
