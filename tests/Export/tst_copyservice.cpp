#include "Export/DragFolder.h"
#include "Export/SnippetBuilder.h"
#include "PickerFixture.h"

#include <QMimeData>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

using PackageConverter::OutEntry;
using LastCopy = UserLibrary::LastCopy;

namespace {

const PathList line{"M2 12h20"};

enum class Planted { nothing, noRuntimeDir, sharedRuntimeDir, link, openFolder, foreignFolder };

bool closedToOthers(const QFileInfo& folder)
{
    constexpr QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                                QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                QFileDevice::WriteOther | QFileDevice::ExeOther;
    return folder.isDir() && !folder.isSymLink() && folder.ownerId() == ::getuid() &&
           !(folder.permissions() & others);
}

} // namespace

class TestCopyService : public QObject {
    Q_OBJECT

    std::unique_ptr<PickerFixture> f;
    Preferences* prefs = nullptr;
    FakeTargets* fake = nullptr;

    IconExport item(const QString& name)
    {
        return {f->library->icon(name), {}, 24, 2, u"currentColor"_qs};
    }

private slots:
    void init()
    {
        f = std::make_unique<PickerFixture>(
            std::vector<OutEntry>{{u"home"_qs, u"B"_qs, {}, line, line},
                                  {u"plus"_qs, u"M"_qs, {}, line, std::nullopt},
                                  {u"blank"_qs, u"S"_qs, {}, std::nullopt, std::nullopt}});
        prefs = &f->prefs;
        fake = &f->targets;
        // Drag files go to folders of this run, not the user's real ones.
        QVERIFY(QDir().mkpath(f->dir.filePath(u"tmp"_qs)));
        qputenv("TMPDIR", f->dir.filePath(u"tmp"_qs).toLocal8Bit());
        const QString runtime = f->dir.filePath(u"run"_qs);
        QVERIFY(QDir().mkdir(runtime, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                          QFileDevice::ExeOwner));
        qputenv("XDG_RUNTIME_DIR", runtime.toLocal8Bit());
    }

    void copyFillsTheClipboardRecordsAndSaysSo_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<ReactLanguage>("language");
        QTest::addColumn<int>("pixels"); // 0: text
        QTest::addColumn<QString>("message");
        QTest::newRow("svg") << ExportFormat::svg << ReactLanguage::tsx << 0 << u"Raw SVG"_qs;
        QTest::newRow("jsx") << ExportFormat::jsx << ReactLanguage::jsx << 0 << u"React / JSX"_qs;
        QTest::newRow("png1") << ExportFormat::png1 << ReactLanguage::tsx << 24 << u"PNG @1x"_qs;
        QTest::newRow("png3") << ExportFormat::png3 << ReactLanguage::tsx << 72 << u"PNG @3x"_qs;
    }
    void copyFillsTheClipboardRecordsAndSaysSo()
    {
        QFETCH(ExportFormat, format);
        QFETCH(ReactLanguage, language);
        QFETCH(int, pixels);
        QFETCH(QString, message);
        prefs->setReactLanguage(language);
        prefs->setPngPadding(0);
        fake->putText(u"old"_qs);
        QVERIFY(f->copy->copy(item(u"home"_qs), format));
        if (pixels == 0) {
            QCOMPARE(fake->text, SnippetBuilder::current(*prefs).text(format, item(u"home"_qs)));
        } else {
            QVERIFY(!fake->text);
            const QImage image = QImage::fromData(fake->png, "PNG");
            QCOMPARE(image.size(), QSize(pixels, pixels));
            // "currentColor" means nothing in a bitmap: the line is black.
            QCOMPARE(image.pixel(pixels / 2, pixels / 2), qRgba(0, 0, 0, 255));
        }
        QCOMPARE(fake->message, u"Copied home as "_qs + message);
        QCOMPARE(fake->messages, 1);
        QCOMPARE(f->user->lastCopy(),
                 std::optional(LastCopy{u"home"_qs, {}, format, u"currentColor"_qs, 24, 2}));
    }

    void anImageThatDoesNotRenderLeavesTheClipboardEmpty()
    {
        fake->putText(u"old"_qs);
        QVERIFY(!f->copy->copy(item(u"blank"_qs), ExportFormat::png2));
        QVERIFY(!fake->text && fake->png.isEmpty() && fake->messages == 0 && !f->user->lastCopy());
    }

    void copyWithDefaultsUsesOutlineWithoutAFilledForm()
    {
        prefs->setDefaultStyle(IconStyle::filled);
        prefs->setDefaultFormat(ExportFormat::vue);
        prefs->setDefaultColor(u"#123456"_qs);
        prefs->setDefaultSize(40);
        prefs->setDefaultStroke(1.25);
        QVERIFY(f->copy->copyWithDefaults(f->library->icon(u"home")));
        QCOMPARE(f->user->lastCopy(),
                 std::optional(LastCopy{u"home"_qs, IconStyle::filled, ExportFormat::vue,
                                        u"#123456"_qs, 40, 1.25}));
        QVERIFY(f->copy->copyWithDefaults(f->library->icon(u"plus"), ExportFormat::blade));
        QCOMPARE(f->user->lastCopy(),
                 std::optional(LastCopy{u"plus"_qs, IconStyle::outline, ExportFormat::blade,
                                        u"#123456"_qs, 40, 1.25}));
    }

    // Copying the last icon again is tray_e2e's; an icon a newer set lacks is not copied.
    void copyLastAgainNeedsTheIcon()
    {
        QVERIFY(f->copy->copy(item(u"plus"_qs), ExportFormat::blade));
        f->load({{u"home"_qs, u"B"_qs, {}, line, line}}); // a newer set without plus
        *fake = {};
        QVERIFY(!f->copy->copyLastAgain());
        QVERIFY(!fake->text && fake->messages == 0);
    }

    void dragPayloadFollowsTheDragFormat_data()
    {
        QTest::addColumn<DragFormat>("format");
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("withData");
        QTest::addColumn<ExportFormat>("recorded");
        QTest::newRow("svg") << DragFormat::svg << u"plus.svg"_qs << false << ExportFormat::svg;
        QTest::newRow("png2x") << DragFormat::png2x << u"plus@2x.png"_qs << false
                               << ExportFormat::png2;
        QTest::newRow("best") << DragFormat::bestMatch << u"plus.svg"_qs << true
                              << ExportFormat::svg;
    }
    void dragPayloadFollowsTheDragFormat()
    {
        QFETCH(DragFormat, format);
        QFETCH(QString, file);
        QFETCH(bool, withData);
        QFETCH(ExportFormat, recorded);
        prefs->setDragFormat(format);
        const std::unique_ptr<QMimeData> mime(f->copy->itemProvider(item(u"plus"_qs)));
        const QString path = DragFolder::path() + u'/' + file;
        QCOMPARE(mime->urls(), QList{QUrl::fromLocalFile(path)});
        QCOMPARE(mime->hasFormat(u"image/png"_qs), withData);
        QCOMPARE(f->user->lastCopy()->format, recorded);
        QVERIFY(fake->messages == 0);
        struct stat status {};
        QCOMPARE(::stat(QFile::encodeName(path).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, 0600u);
        QFile written(path);
        QVERIFY(written.open(QIODevice::ReadOnly));
        const QByteArray bytes = written.readAll();
        if (recorded == ExportFormat::png2)
            QCOMPARE(QImage::fromData(bytes, "PNG").size(), QSize(48, 48));
        else
            QVERIFY(bytes.contains("stroke=\"#000000\"") && !bytes.contains("currentColor"));
        if (withData)
            QCOMPARE(mime->data(u"image/svg+xml"_qs), bytes);
    }

    void dragFilesStayInTheirFolder_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name :
             {u"../../evil"_qs, u".hidden"_qs, u"a/b"_qs, u"..\\x"_qs, u"x\u0001y"_qs, u".."_qs})
            QTest::addRow("%s", qPrintable(name)) << name;
    }
    void dragFilesStayInTheirFolder()
    {
        QFETCH(QString, name);
        // No catalogue holds such a name; the file name is made safe all the same.
        const IconExport bad{
            Icon(name, u"Bad"_qs, {}, line, std::nullopt), {}, 24, 2, u"currentColor"_qs};
        prefs->setDragFormat(DragFormat::svg);
        const std::unique_ptr<QMimeData> mime(f->copy->itemProvider(bad));
        QCOMPARE(mime->urls().size(), 1);
        const QFileInfo file(mime->urls().first().toLocalFile());
        QVERIFY(file.isFile());
        QCOMPARE(file.canonicalPath(), QFileInfo(DragFolder::path()).canonicalFilePath());
        QVERIFY(!file.fileName().startsWith(u'.'));
        QVERIFY(std::ranges::all_of(file.fileName(),
                                    [](QChar c) { return c.isPrint() && c != u'\\'; }));
    }

    // Whatever another account left where drag files go, a drag still carries
    // a file, written only where nobody else can read, replace or link it.
    void dragFilesGoWhereOnlyThisUserCanWrite_data()
    {
        QTest::addColumn<Planted>("planted");
        QTest::addColumn<bool>("inRuntimeDir");
        QTest::newRow("runtime dir") << Planted::nothing << true;
        QTest::newRow("no runtime dir") << Planted::noRuntimeDir << false;
        QTest::newRow("runtime dir others share") << Planted::sharedRuntimeDir << false;
        QTest::newRow("a link in its place") << Planted::link << false;
        QTest::newRow("a folder open to others") << Planted::openFolder << false;
        if (::getuid() == 0) // only an administrator can give a folder away
            QTest::newRow("a folder of another user") << Planted::foreignFolder << false;
    }
    void dragFilesGoWhereOnlyThisUserCanWrite()
    {
        QFETCH(Planted, planted);
        QFETCH(bool, inRuntimeDir);
        const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
        const QString temp = QDir::tempPath();
        const QString elsewhere = f->dir.filePath(u"elsewhere"_qs);
        QVERIFY(QDir().mkdir(elsewhere));
        // The planted folder is where the drag folder would be without a
        // runtime dir in the shared temporary folder, or with one.
        const QString target = (planted == Planted::link || planted == Planted::openFolder ||
                                planted == Planted::foreignFolder)
                                   ? runtime + u"/Pictray"_qs
                                   : temp + u"/Pictray"_qs;
        switch (planted) {
        case Planted::nothing:
            break;
        case Planted::noRuntimeDir:
            qunsetenv("XDG_RUNTIME_DIR");
            QVERIFY(QFile::link(elsewhere, target));
            break;
        case Planted::sharedRuntimeDir:
            QVERIFY(QFile::setPermissions(elsewhere, QFileDevice::Permissions(0x7777)));
            qputenv("XDG_RUNTIME_DIR", elsewhere.toLocal8Bit());
            break;
        case Planted::link:
            QVERIFY(QFile::link(elsewhere, target));
            break;
        case Planted::openFolder:
            QVERIFY(QDir().mkdir(target));
            QVERIFY(QFile::setPermissions(target, QFileDevice::Permissions(0x7777)));
            break;
        case Planted::foreignFolder:
            QVERIFY(QDir().mkdir(target));
            QCOMPARE(::chown(QFile::encodeName(target).constData(), 65534, 65534), 0);
            break;
        }
        prefs->setDragFormat(DragFormat::svg);
        const std::unique_ptr<QMimeData> mime(f->copy->itemProvider(item(u"plus"_qs)));
        QCOMPARE(mime->urls().size(), 1);
        const QFileInfo file(mime->urls().first().toLocalFile());
        QVERIFY(file.isFile());
        const QFileInfo folder(file.absolutePath());
        QVERIFY(closedToOthers(folder));
        QCOMPARE(folder.absoluteFilePath() ==
                     QFileInfo(runtime + u"/Pictray"_qs).absoluteFilePath(),
                 inRuntimeDir);
        QVERIFY(folder.absoluteFilePath() != QFileInfo(temp + u"/Pictray"_qs).absoluteFilePath());
        QVERIFY(QDir(elsewhere).isEmpty());
    }

    void aPlantedLinkIsNeverWrittenThrough()
    {
        const QString victim = f->dir.filePath(u"victim"_qs);
        QFile(victim).open(QIODevice::WriteOnly);
        const QString link = DragFolder::path() + u"/plus.svg"_qs;
        QDir().mkpath(DragFolder::path());
        QFile::remove(link);
        QVERIFY(QFile::link(victim, link));
        prefs->setDragFormat(DragFormat::bestMatch);
        const std::unique_ptr<QMimeData> mime(f->copy->itemProvider(item(u"plus"_qs)));
        QVERIFY(mime->urls().isEmpty());
        QVERIFY(mime->hasFormat(u"image/svg+xml"_qs)); // the data still travels
        QCOMPARE(QFileInfo(victim).size(), 0);
    }

    // What an earlier run left is removed; what a planted link points to is not.
    void oldDragFilesAreRemoved()
    {
        const QString elsewhere = f->dir.filePath(u"kept"_qs);
        QFile(elsewhere).open(QIODevice::WriteOnly);
        prefs->setDragFormat(DragFormat::svg);
        const std::unique_ptr<QMimeData> mime(f->copy->itemProvider(item(u"plus"_qs)));
        QVERIFY(QFile::link(elsewhere, DragFolder::path() + u"/link.svg"_qs));
        QVERIFY(QFile::link(f->dir.filePath(u"gone"_qs), DragFolder::path() + u"/broken.svg"_qs));
        DragFolder::removeOldFiles();
        QVERIFY(
            QDir(DragFolder::path())
                .isEmpty(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot));
        QVERIFY(QFile::exists(elsewhere));
    }

    void pasteWaitsAndNeedsTrust()
    {
        std::function<void()> pending;
        f->copy->setPasteScheduler([&](std::function<void()> paste) { pending = paste; });
        fake->trusted = false;
        QVERIFY(!f->copy->pasteIntoFrontApp());
        QVERIFY(!pending);
        fake->trusted = true;
        QVERIFY(f->copy->pasteIntoFrontApp());
        QCOMPARE(fake->pastes, 0);
        pending();
        QCOMPARE(fake->pastes, 1);
    }
};

QTEST_MAIN(TestCopyService)
#include "tst_copyservice.moc"
