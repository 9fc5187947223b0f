#include "AppWindows/LibrarySettings.h"
#include "AppWindows/LoginSetting.h"
#include "AppWindows/SettingsForm.h"
#include "AppWindows/ShortcutSetting.h"
#include "QuickItems.h"
#include "TestData.h"
#include "WindowsFixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QSignalSpy>
#include <QtTest>

namespace {

const KeyCombo ctrlShiftK{40, KeyCombo::controlFlag | KeyCombo::shiftFlag};

QString comboText(const std::optional<KeyCombo>& combo)
{
    return combo ? QString::fromUtf8(combo->toJson()) : QStringLiteral("none");
}

} // namespace

class TestSettingsViews : public QObject {
    Q_OBJECT

    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<WindowsFixture> f;
    int beeps = 0;

    QQuickItem* item(QQuickWindow* window, const QString& name)
    {
        QQuickItem* found = findItem(window->contentItem(), name);
        if (!found)
            qWarning() << "no item" << name;
        return found;
    }

    QQuickWindow* settings()
    {
        f->windows.showSettings(WindowManager::Tab::general);
        return f->windows.settingsWindow();
    }

    // Both hot keys live, as the running program has them.
    void registerHotKeys()
    {
        f->hotKeys.registerHotKey(HotKeyCenter::ID::picker, f->prefs.pickerHotKey(), [] {});
        f->hotKeys.registerHotKey(HotKeyCenter::ID::copyLast, f->prefs.copyLastHotKey(), [] {});
        // Re-registered on change, as the program does.
        connect(&f->prefs, &Preferences::pickerHotKeyChanged, &f->hotKeys, [this] {
            f->hotKeys.registerHotKey(HotKeyCenter::ID::picker, f->prefs.pickerHotKey(), [] {});
        });
    }

private slots:
    void initTestCase() { library = WindowsFixture::prepare(); }

    void init()
    {
        f = std::make_unique<WindowsFixture>(*library);
        beeps = 0;
        f->windows.settingsForm().setBeep([this] { ++beeps; });
    }

    void cleanup() { f.reset(); }

    // The signal a user's change raises on each control, and what reaches the file.
    void eachControlWritesItsSetting_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");
        const QByteArray toggled = "toggled(bool)", activated = "activated(int)";
        const auto row = [](const char* name, const QByteArray& signal, const QVariant& value,
                            const char* key, const char* stored) {
            QTest::newRow(name) << name << signal << value << key << stored;
        };
        row("automaticallyChecksForUpdates", toggled, true, "automaticallyChecksForUpdates",
            "true");
        row("showMenuBarIcon", toggled, false, "showMenuBarIcon", "false");
        row("pickerPosition", activated, 1, "pickerPosition", "centered");
        row("afterCopy", activated, 2, "afterCopy", "closeAndPaste");
        row("keepLastSearch", toggled, true, "keepLastSearch", "true");
        row("showCategoryBar", toggled, false, "showCategoryBar", "false");
        row("recentsLimit", "valueModified()", 10, "recentsLimit", "10");
        row("defaultFormat", activated, 0, "defaultFormat", "svg");
        row("defaultStyle", activated, 1, "defaultStyle", "filled");
        row("defaultSize", "modified(int)", 48, "defaultSize", "48");
        row("defaultStroke", "moved(double)", 1.5, "defaultStroke", "1.5");
        row("includeSize", toggled, false, "includeSize", "false");
        row("tailwindCurrentColor", toggled, false, "tailwindCurrentColor", "false");
        row("ariaHidden", toggled, true, "ariaHidden", "true");
        row("classAttribute", "edited(QString)", "icon-{name}", "classAttribute", "icon-{name}");
        row("reactComponentName", "edited(QString)", "{Name}Icon", "reactComponentName",
            "{Name}Icon");
        row("reactLanguage", activated, 0, "reactLanguage", "jsx");
        row("vueStyle", activated, 1, "vueStyle", "template");
        row("bladePrefix", "edited(QString)", "x-", "bladePrefix", "x-");
        row("png3x", "toggled()", true, "png3x", "true");
        row("png1x", "toggled()", false, "png1x", "false");
        row("pngBackground", activated, 2, "pngBackground", "black");
        row("pngPadding", "modified(int)", 4, "pngPadding", "4");
        row("dragFormat", activated, 1, "dragFormat", "svg");
    }

    void eachControlWritesItsSetting()
    {
        QFETCH(QString, control);
        QFETCH(QByteArray, signal);
        QFETCH(QVariant, value);
        QFETCH(QString, key);
        QQuickItem* target = item(settings(), control);
        QVERIFY(target);
        const QMetaObject* meta = target->metaObject();
        const int index = meta->indexOfMethod(QMetaObject::normalizedSignature(signal));
        QVERIFY2(index >= 0, signal.constData());
        const QMetaMethod method = meta->method(index);
        bool invoked = false;
        if (method.parameterCount() == 0) {
            // A control that carries its value itself: set it, then announce the change.
            const char* property = signal == "toggled()" ? "checked" : "value";
            QVERIFY(target->setProperty(property, value));
            invoked = method.invoke(target);
        } else {
            QVariant argument = value;
            QVERIFY(argument.convert(method.parameterMetaType(0)));
            invoked =
                method.invoke(target, QGenericArgument(argument.typeName(), argument.constData()));
        }
        QVERIFY(invoked);
        // Written through to the file at once.
        Preferences reread(f->store);
        QTEST(reread.valueText(key), "stored");
    }

    void defaultColorCommit_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("beepCount");
        // HexColor's tests cover what reads as a colour; these show the field
        // commits through it, lowers only hexadecimal colours and beeps at a refusal.
        QTest::newRow("any case of currentColor")
            << u" CurrentColor "_qs << u"currentColor"_qs << 0;
        QTest::newRow("three digits") << u"#ABC"_qs << u"#aabbcc"_qs << 0;
        QTest::newRow("no hash, with alpha") << u"ff000080"_qs << u"#ff000080"_qs << 0;
        QTest::newRow("not a colour") << u"zz"_qs << u"#123456"_qs << 1;
    }

    void defaultColorCommit()
    {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        f->prefs.setDefaultColor("#123456");
        QQuickItem* field = item(settings(), "defaultColor");
        QVERIFY(field);
        field->setProperty("text", typed);
        QVERIFY(QMetaObject::invokeMethod(field, "editingFinished"));
        QCOMPARE(field->property("text").toString(), stored);
        QCOMPARE(f->prefs.defaultColor(), stored);
        QTEST(beeps, "beepCount");
    }

    void recorderKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("combo");
        QTest::addColumn<bool>("stillRecording");
        const QString unchanged = comboText(Preferences::defaultPickerHotKey);
        const int none = Qt::NoModifier;
        QTest::newRow("Escape cancels") << int(Qt::Key_Escape) << none << unchanged << false;
        QTest::newRow("Backspace clears") << int(Qt::Key_Backspace) << none << "none" << false;
        QTest::newRow("Shift+Backspace records")
            << int(Qt::Key_Backspace) << int(Qt::ShiftModifier)
            << comboText(KeyCombo{51, KeyCombo::shiftFlag}) << false;
        QTest::newRow("Super+Alt+F5 records")
            << int(Qt::Key_F5) << int(Qt::MetaModifier | Qt::AltModifier)
            << comboText(KeyCombo{96, KeyCombo::commandFlag | KeyCombo::optionFlag}) << false;
        QTest::newRow("a key alone waits") << int(Qt::Key_K) << none << unchanged << true;
        QTest::newRow("a modifier alone waits")
            << int(Qt::Key_Control) << int(Qt::ControlModifier) << unchanged << true;
    }

    // Keys reach the recorder through the window, as typed.
    void recorderKeys()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, combo);
        registerHotKeys();
        QQuickWindow* window = settings();
        QQuickItem* recorder = item(window, "pickerHotKeyRecorder");
        QVERIFY(recorder);
        ShortcutSetting& setting = *f->windows.settingsForm().pickerShortcut();
        recorder->forceActiveFocus();
        setting.toggleRecording();
        QVERIFY(recorder->property("recording").toBool());

        QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
        QCoreApplication::sendEvent(window, &press);
        QCOMPARE(comboText(f->prefs.pickerHotKey()), combo);
        QTEST(setting.isRecording(), "stillRecording");
        QCOMPARE(Preferences(f->store).valueText("pickerHotKey").isEmpty(), combo == "none");
    }

    // The hot keys go off once when recording starts and come back once
    // however it ends, also when the window goes away mid-recording.
    void recordingSuspendsHotKeysOnce()
    {
        registerHotKeys();
        ShortcutSetting& setting = *f->windows.settingsForm().copyLastShortcut();
        CountingHotKeys& backend = *f->hotKeyBackend;
        const int registered = backend.registrations;

        setting.toggleRecording();
        setting.toggleRecording(); // a second click stops
        QCOMPARE(backend.withdrawals, 2);
        QCOMPARE(backend.registrations, registered + 2);
        QVERIFY(!setting.isRecording());

        setting.toggleRecording();
        QVERIFY(setting.press(Qt::Key_Escape, Qt::NoModifier, 0));
        setting.stopRecording();
        QCOMPARE(backend.withdrawals, 4);
        QCOMPARE(backend.registrations, registered + 4);
        QCOMPARE(f->prefs.copyLastHotKey(), std::optional(Preferences::defaultCopyLastHotKey));

        f->windows.showOnboarding();
        setting.toggleRecording();
        f->windows.onboardingWindow()->close();
        QVERIFY(!setting.isRecording());
        QCOMPARE(backend.registrations, registered + 6);

        setting.toggleRecording();
        f.reset(); // the window and its form go while recording
    }

    void refusedShortcutIsSaid()
    {
        registerHotKeys();
        f->hotKeyBackend->taken = ctrlShiftK;
        QQuickWindow* window = settings();
        QQuickItem* refusal = item(window, "pickerHotKeyRefusal");
        QVERIFY(refusal);
        QVERIFY(!refusal->isVisible());
        ShortcutSetting& setting = *f->windows.settingsForm().pickerShortcut();
        setting.toggleRecording();
        setting.press(Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier, 0);
        QVERIFY(refusal->isVisible());
        QCOMPARE(setting.refusal(), QString("Another program already uses this shortcut."));

        QVERIFY(QMetaObject::invokeMethod(item(window, "pickerHotKeyReset"), "clicked"));
        QCOMPARE(f->prefs.pickerHotKey(), std::optional(Preferences::defaultPickerHotKey));
        QVERIFY(!refusal->isVisible());
    }

    // Where the desktop owns the keys (Wayland) its word replaces the refusal.
    void desktopNoteIsSaid()
    {
        registerHotKeys();
        QQuickWindow* window = settings();
        QQuickItem* line = item(window, "pickerHotKeyRefusal");
        QVERIFY(!line->isVisible());
        const QString note = u"Your desktop runs it with CTRL+ALT+i."_qs;
        f->hotKeyBackend->note = note;
        f->hotKeyBackend->notesChanged();
        QCOMPARE(f->windows.settingsForm().pickerShortcut()->refusal(), note);
        QTRY_VERIFY(line->isVisible());
    }

    void launchAtLoginShowsTheRealState_data()
    {
        QTest::addColumn<bool>("refuses");
        QTest::newRow("accepted") << false;
        QTest::newRow("refused") << true;
    }

    void launchAtLoginShowsTheRealState()
    {
        QFETCH(bool, refuses);
        f->loginItem.refuses = refuses;
        QQuickItem* toggle = item(settings(), "launchAtLoginSwitch");
        QVERIFY(toggle);
        // As a click does it.
        toggle->setProperty("checked", true);
        QVERIFY(QMetaObject::invokeMethod(toggle, "toggled"));
        QCOMPARE(f->loginItem.enabled, !refuses);
        QCOMPARE(toggle->property("checked").toBool(), !refuses);
    }

    void favoritesFiles()
    {
        LibrarySettings& settings = *f->windows.settingsForm().library();
        f->user.setFavorite({"star", "heart"}, true);
        const QString file = f->dir.filePath("Pictray Favorites.json");

        settings.setFileChooser([&](LibrarySettings::FileChoice choice) {
            return choice == LibrarySettings::FileChoice::save ? file : QString();
        });
        settings.chooseImportFile(); // cancelled
        QCOMPARE(settings.message(), QString());
        settings.chooseExportFile();
        QCOMPARE(settings.message(), QString("Exported 2 favorites."));
        QCOMPARE(TestData::readFile(file), f->user.exportFavorites());

        settings.exportFavorites(f->dir.filePath("missing/folder.json"));
        QVERIFY2(settings.message().startsWith("Export failed: "), qPrintable(settings.message()));

        f->user.setFavorite({"star", "heart"}, false);
        settings.importFavorites(file);
        QCOMPARE(settings.message(), QString("Imported 2 new favorites."));
        QCOMPARE(settings.favoritesText(), QString("2 favorites"));

        TestData::writeFile(f->dir.filePath("notes.json"), R"({"notes": true})");
        settings.importFavorites(f->dir.filePath("notes.json"));
        QCOMPARE(settings.message(), UserLibrary::notAnExportMessage());
        QCOMPARE(f->user.favorites(), QStringList({"star", "heart"}));
    }

    void onboardingWalksThreeSteps()
    {
        QSignalSpy pickerRequested(&f->windows, &WindowManager::pickerRequested);
        f->windows.showOnboarding();
        QQuickWindow* window = f->windows.onboardingWindow();
        QVERIFY(window);
        QQuickItem* step = item(window, "onboardingStep");
        QQuickItem* next = item(window, "onboardingContinue");
        QQuickItem* back = item(window, "onboardingBack");
        QCOMPARE(step->property("text").toString(), QString("Step 1 of 3"));
        QVERIFY(!back->isEnabled());

        QVERIFY(QMetaObject::invokeMethod(next, "clicked"));
        QCOMPARE(step->property("text").toString(), QString("Step 2 of 3"));
        QVERIFY(QMetaObject::invokeMethod(item(window, "onboardingCloseAfterCopy"), "toggled",
                                          Q_ARG(bool, false)));
        QCOMPARE(f->store.stringValue("afterCopy"), std::optional<QString>("keepOpen"));
        QVERIFY(QMetaObject::invokeMethod(back, "clicked"));
        QCOMPARE(step->property("text").toString(), QString("Step 1 of 3"));

        QVERIFY(QMetaObject::invokeMethod(next, "clicked"));
        QVERIFY(QMetaObject::invokeMethod(next, "clicked"));
        QCOMPARE(next->property("text").toString(), QString("Start Using Pictray"));
        QVERIFY(!f->store.boolValue("hasCompletedOnboarding"));
        QVERIFY(QMetaObject::invokeMethod(next, "clicked"));
        QVERIFY(f->store.boolValue("hasCompletedOnboarding"));
        QCOMPARE(pickerRequested.size(), 1);
        QVERIFY(!f->windows.onboardingWindow());
    }
};

QTEST_MAIN(TestSettingsViews)
#include "tst_settingsviews.moc"
