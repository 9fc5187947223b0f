#include "Catalog/IconLibrary.h"
#include "Catalog/PackageConverter.h"
#include "Export/CopyService.h"
#include "Export/SnippetBuilder.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

using PackageConverter::OutEntry;

namespace {

struct FakeClipboard : Clipboard {
    int clears = 0;
    std::optional<QString> text;
    QByteArray png;
    QImage image;
    void clear() override
    {
        ++clears;
        text.reset();
        png.clear();
        image = {};
    }
    void putText(const QString& value) override { text = value; }
    void putPNG(const QByteArray& bytes, const QImage& picture) override
    {
        png = bytes;
        image = picture;
    }
};

struct FakeHeadsUp : HeadsUp {
    QStringList messages;
    void show(const QString& message) override { messages.append(message); }
};

struct FakePaster : Paster {
    bool trusted = true;
    int pastes = 0;
    void rememberTarget() override {}
    bool isTrusted() const override { return trusted; }
    void paste() override { ++pastes; }
};

const PathList line{"M2 12h20"};

} // namespace

class TestCopyService : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    int files = 0;
    std::unique_ptr<SettingsStore> store;
    std::unique_ptr<Preferences> prefs;
    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<UserLibrary> user;
    FakeClipboard clipboard;
    FakeHeadsUp headsUp;
    FakePaster paster;
    std::unique_ptr<CopyService> service;

    void loadCatalogue(const std::vector<OutEntry>& icons)
    {
        QFile file(dir.filePath(QStringLiteral("catalogue-%1.json").arg(++files)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(PackageConverter::OutFile{"1.0", icons}.encode());
        file.close();
        library = std::make_unique<IconLibrary>(IconLibrary::Sources{file.fileName(), {}});
        user = std::make_unique<UserLibrary>(
            *store, *prefs, [this](const QString& name) { return !library->icon(name).isNull(); });
        service =
            std::make_unique<CopyService>(*library, *user, *prefs, clipboard, headsUp, paster);
    }

    IconExport exportOf(const QString& name, QString color = u"currentColor"_qs)
    {
        return {library->icon(name), IconStyle::outline, 24, 2, color};
    }

private slots:
    void initTestCase()
    {
        // Drag files go to a folder of this run, not the shared temporary one.
        QVERIFY(QDir().mkpath(dir.filePath(u"tmp"_qs)));
        qputenv("TMPDIR", dir.filePath(u"tmp"_qs).toLocal8Bit());
    }

    void init()
    {
        service.reset();
        user.reset();
        store = std::make_unique<SettingsStore>(
            dir.filePath(QStringLiteral("settings-%1.conf").arg(++files)));
        prefs = std::make_unique<Preferences>(*store);
        library = std::make_unique<IconLibrary>(IconLibrary::Sources{});
        loadCatalogue({{u"home"_qs, u"Buildings"_qs, {}, line, line},
                       {u"plus"_qs, u"Math"_qs, {}, line, std::nullopt},
                       {u"blank"_qs, u"Shapes"_qs, {}, std::nullopt, std::nullopt}});
        clipboard.clear();
        clipboard.clears = 0;
        headsUp.messages.clear();
        paster = {};
    }

    void copyPutsTheFormatOnTheClipboard_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<int>("pixels"); // 0: a text format
        for (const ExportFormat format : Formats::codeFormats())
            QTest::addRow("%s", rawValue(format).toLatin1().constData()) << format << 0;
        QTest::addRow("png1") << ExportFormat::png1 << 24;
        QTest::addRow("png2") << ExportFormat::png2 << 48;
        QTest::addRow("png3") << ExportFormat::png3 << 72;
    }
    void copyPutsTheFormatOnTheClipboard()
    {
        QFETCH(ExportFormat, format);
        QFETCH(int, pixels);
        prefs->setPngPadding(0);
        const IconExport item = exportOf(u"home"_qs);
        QVERIFY(service->copy(item, format));
        QCOMPARE(clipboard.clears, 1);
        if (pixels == 0) {
            QCOMPARE(clipboard.text, SnippetBuilder::current(*prefs).text(format, item));
            QVERIFY(clipboard.png.isEmpty());
            return;
        }
        QVERIFY(!clipboard.text);
        const QImage decoded = QImage::fromData(clipboard.png, "PNG");
        QCOMPARE(decoded.size(), QSize(pixels, pixels));
        QCOMPARE(clipboard.image.size(), QSize(pixels, pixels));
        // "currentColor" has no meaning in a bitmap: the line is black.
        QCOMPARE(decoded.pixel(pixels / 2, pixels / 2), qRgba(0, 0, 0, 255));
        QCOMPARE(qAlpha(decoded.pixel(pixels / 2, 1)), 0);
    }

    void copyRecordsAndAnnounces_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<ReactLanguage>("language");
        QTest::addColumn<QString>("message");
        QTest::newRow("tsx") << ExportFormat::jsx << ReactLanguage::tsx
                             << u"Copied home as React / TSX"_qs;
        QTest::newRow("jsx") << ExportFormat::jsx << ReactLanguage::jsx
                             << u"Copied home as React / JSX"_qs;
        QTest::newRow("png") << ExportFormat::png3 << ReactLanguage::tsx
                             << u"Copied home as PNG @3x"_qs;
    }
    void copyRecordsAndAnnounces()
    {
        QFETCH(ExportFormat, format);
        QFETCH(ReactLanguage, language);
        QFETCH(QString, message);
        prefs->setReactLanguage(language);
        IconExport item = exportOf(u"home"_qs, u"#ff0000"_qs);
        item.style = IconStyle::filled;
        item.size = 32;
        item.stroke = 1.5;
        QVERIFY(service->copy(item, format));
        QCOMPARE(headsUp.messages, QStringList{message});
        QCOMPARE(user->lastCopy(),
                 std::optional(UserLibrary::LastCopy{u"home"_qs, IconStyle::filled, format,
                                                     u"#ff0000"_qs, 32, 1.5}));
        QCOMPARE(user->recents(), QStringList{u"home"_qs});
    }

    void anImageThatDoesNotRenderChangesNothing()
    {
        clipboard.putText(u"before"_qs);
        QVERIFY(!service->copy(exportOf(u"blank"_qs), ExportFormat::png2));
        IconExport tiny = exportOf(u"home"_qs);
        tiny.size = 0;
        QVERIFY(!service->copy(tiny, ExportFormat::png1));
        QVERIFY(!clipboard.text && clipboard.png.isEmpty());
        QVERIFY(headsUp.messages.isEmpty());
        QVERIFY(!user->lastCopy());
    }

    void copyWithDefaultsFallsBackToOutline_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<IconStyle>("style");
        QTest::newRow("has filled") << u"home"_qs << IconStyle::filled;
        QTest::newRow("outline only") << u"plus"_qs << IconStyle::outline;
    }
    void copyWithDefaultsFallsBackToOutline()
    {
        QFETCH(QString, name);
        QFETCH(IconStyle, style);
        prefs->setDefaultStyle(IconStyle::filled);
        prefs->setDefaultFormat(ExportFormat::vue);
        prefs->setDefaultColor(u"#123456"_qs);
        prefs->setDefaultSize(40);
        prefs->setDefaultStroke(1.25);
        QVERIFY(service->copyWithDefaults(library->icon(name)));
        QCOMPARE(user->lastCopy(), std::optional(UserLibrary::LastCopy{
                                       name, style, ExportFormat::vue, u"#123456"_qs, 40, 1.25}));
        QVERIFY(service->copyWithDefaults(library->icon(name), ExportFormat::blade));
        QCOMPARE(user->lastCopy()->format, ExportFormat::blade);
    }

    void copyLastAgain()
    {
        QVERIFY(!service->copyLastAgain()); // nothing stored yet
        QVERIFY(headsUp.messages.isEmpty() && !clipboard.text);

        QVERIFY(service->copy(exportOf(u"plus"_qs, u"#00ff00"_qs), ExportFormat::blade));
        const QString text = *clipboard.text;
        clipboard.clear();
        QVERIFY(service->copyLastAgain());
        QCOMPARE(clipboard.text, text);
        QCOMPARE(headsUp.messages.size(), 2);

        // A newer icon set dropped the icon: nothing happens.
        loadCatalogue({{u"home"_qs, u"Buildings"_qs, {}, line, line}});
        QVERIFY(user->lastCopy());
        clipboard.clear();
        headsUp.messages.clear();
        QVERIFY(!service->copyLastAgain());
        QVERIFY(!clipboard.text && headsUp.messages.isEmpty());
    }

    void itemProviderFollowsTheDragFormat_data()
    {
        QTest::addColumn<DragFormat>("format");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("data");
        QTest::addColumn<ExportFormat>("recorded");
        QTest::newRow("svg") << DragFormat::svg << u"plus.svg"_qs << QStringList{}
                             << ExportFormat::svg;
        QTest::newRow("png2x") << DragFormat::png2x << u"plus@2x.png"_qs << QStringList{}
                               << ExportFormat::png2;
        QTest::newRow("bestMatch")
            << DragFormat::bestMatch << u"plus.svg"_qs
            << QStringList{u"image/png"_qs, u"image/svg+xml"_qs} << ExportFormat::svg;
    }
    void itemProviderFollowsTheDragFormat()
    {
        QFETCH(DragFormat, format);
        QFETCH(QString, file);
        QFETCH(QStringList, data);
        QFETCH(ExportFormat, recorded);
        prefs->setDragFormat(format);
        const std::unique_ptr<QMimeData> mime(service->itemProvider(exportOf(u"plus"_qs)));
        const QString path = CopyService::dragFolder() + u'/' + file;
        QCOMPARE(mime->urls(), QList{QUrl::fromLocalFile(path)});
        for (const QString& type : data)
            QVERIFY2(mime->hasFormat(type), qPrintable(type));
        QCOMPARE(mime->hasFormat(u"image/png"_qs), data.contains(u"image/png"_qs));
        QCOMPARE(user->lastCopy()->format, recorded);
        QVERIFY(headsUp.messages.isEmpty());

        QFile written(path);
        QVERIFY(written.open(QIODevice::ReadOnly));
        const QByteArray bytes = written.readAll();
        if (recorded == ExportFormat::png2) {
            QCOMPARE(QImage::fromData(bytes, "PNG").size(), QSize(48, 48));
        } else {
            QVERIFY(bytes.contains("stroke=\"#000000\""));
            QVERIFY(!bytes.contains("currentColor"));
            if (format == DragFormat::bestMatch)
                QCOMPARE(mime->data(u"image/svg+xml"_qs), bytes);
        }
    }

    void dragFilesStayInTheirFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("parent") << u"../../evil"_qs;
        QTest::newRow("hidden") << u".hidden"_qs;
        QTest::newRow("slash") << u"a/b"_qs;
        QTest::newRow("backslash") << u"..\\x"_qs;
        QTest::newRow("control") << u"x\u0001y"_qs;
        QTest::newRow("dots only") << u".."_qs;
    }
    void dragFilesStayInTheirFolder()
    {
        QFETCH(QString, name);
        loadCatalogue({{name, u"Bad"_qs, {}, line, std::nullopt}});
        QVERIFY(!library->icon(name).isNull());
        prefs->setDragFormat(DragFormat::svg);
        const std::unique_ptr<QMimeData> mime(service->itemProvider(exportOf(name)));
        QCOMPARE(mime->urls().size(), 1);
        const QFileInfo file(mime->urls().first().toLocalFile());
        QVERIFY(file.isFile());
        QCOMPARE(file.canonicalPath(), QFileInfo(CopyService::dragFolder()).canonicalFilePath());
        QVERIFY(!file.fileName().startsWith(u'.'));
        for (const QChar c : file.fileName())
            QVERIFY(c.isPrint() && c != u'\\');
    }

    void aPlantedLinkIsNeverWrittenThrough()
    {
        QTemporaryDir outside;
        const QString victim = outside.filePath(u"victim"_qs);
        QFile(victim).open(QIODevice::WriteOnly);
        const QString link = CopyService::dragFolder() + u"/plus.svg"_qs;
        QDir().mkpath(CopyService::dragFolder());
        QFile::remove(link);
        QVERIFY(QFile::link(victim, link));
        prefs->setDragFormat(DragFormat::bestMatch);
        const std::unique_ptr<QMimeData> mime(service->itemProvider(exportOf(u"plus"_qs)));
        QVERIFY(mime->urls().isEmpty());
        QVERIFY(mime->hasFormat(u"image/svg+xml"_qs)); // the data still travels
        QCOMPARE(QFileInfo(victim).size(), 0);
        QFile::remove(link);
    }

    void pasteWaitsAndNeedsTrust()
    {
        paster.trusted = false;
        QVERIFY(!service->pasteIntoFrontApp());
        QTest::qWait(200);
        QCOMPARE(paster.pastes, 0);

        paster.trusted = true;
        QVERIFY(service->pasteIntoFrontApp());
        QTest::qWait(60);
        QCOMPARE(paster.pastes, 0);
        QTRY_COMPARE_WITH_TIMEOUT(paster.pastes, 1, 1000);
    }
};

QTEST_MAIN(TestCopyService)
#include "tst_copyservice.moc"
