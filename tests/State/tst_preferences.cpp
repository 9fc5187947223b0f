#include "State/Preferences.h"
#include "StoreFiles.h"
#include "TestData.h"

#include <QSignalSpy>
#include <QTest>

class TestPreferences : public QObject {
    Q_OBJECT

    StoreFiles files;

private slots:
    void firstLaunchReadsEveryKeyAndWritesNothing()
    {
        auto store = files.fresh();
        {
            const Preferences preferences(*store);
            for (const QString& key : Preferences::keys())
                QVERIFY2(!preferences.valueText(key).isEmpty(), qPrintable(key));
        }
        int registered = 0;
        for (const QString& key : Preferences::keys())
            registered += store->registeredDefault(key).isValid();
        QCOMPARE(registered, 28);
        QVERIFY(!store->registeredDefault(u"hasCompletedOnboarding"_qs).isValid());
        QCOMPARE(store->writeError(), std::nullopt);
        QVERIFY(store->userKeys().isEmpty());
    }

    // Views bind to the properties by name and wait for their signals, so each
    // key must be a property whose setter notifies and writes under that key.
    void everyKeyIsANotifyingProperty()
    {
        auto store = files.fresh();
        Preferences preferences(*store);
        const QMetaObject* meta = preferences.metaObject();
        for (const QString& key : Preferences::keys()) {
            const QMetaProperty property =
                meta->property(meta->indexOfProperty(key.toLatin1().constData()));
            QVERIFY2(property.isWritable() && property.hasNotifySignal(), qPrintable(key));
            QSignalSpy spy(&preferences, property.notifySignal());
            QVERIFY(property.write(&preferences, property.read(&preferences)));
            QCOMPARE(spy.count(), 1);
            QVERIFY2(store->contains(key), qPrintable(key));
        }
    }

    void unknownStoredStringsFallBack_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("reads");
        auto row = [](const char* key, const char* stored, const char* reads) {
            QTest::addRow("%s=%s", key, stored)
                << QString::fromLatin1(key) << QString::fromLatin1(stored)
                << QString::fromLatin1(reads);
        };
        row("reactLanguage", "JSX", "tsx");
        row("reactLanguage", "", "tsx");
        row("defaultStyle", "Filled", "outline");
        row("defaultFormat", "react", "jsx");
        row("defaultFormat", "png3", "png3");
        row("pickerPosition", "Mouse", "underMenuBarIcon");
        row("afterCopy", "closeandpaste", "close");
        row("appearance", "Dark", "system");
        row("vueStyle", "templateOnly", "sfc");
        row("pngBackground", "White", "transparent");
        row("dragFormat", "png2", "bestMatch");
        row("defaultColor", "\"><script>x</script>", "currentColor");
        row("defaultColor", " #fff", "currentColor");
        row("defaultColor", "#DC2626", "#DC2626");
    }
    void unknownStoredStringsFallBack()
    {
        QFETCH(QString, key);
        QFETCH(QString, stored);
        auto store = files.fresh();
        store->setString(key, stored);
        store = files.relaunch(std::move(store));
        QTEST(Preferences(*store).valueText(key), "reads");
    }

    void handWrittenFileWithWrongTypes()
    {
        auto store = files.withText("[General]\nrecentsLimit=abc\ndefaultStroke=thick\n"
                                    "showMenuBarIcon=maybe\npng3x=true\ndefaultSize=32\n"
                                    "pickerHotKey=@ByteArray(garbage)\ncopyLastHotKey=\n"
                                    "classAttribute=\nbladePrefix=@ByteArray(x)\n");
        Preferences preferences(*store);
        QCOMPARE(preferences.recentsLimit(), 24);
        QCOMPARE(preferences.defaultStroke(), 2.0);
        QCOMPARE(preferences.showMenuBarIcon(), true);
        QCOMPARE(preferences.png3x(), true);
        QCOMPARE(preferences.defaultSize(), 32);
        QCOMPARE(preferences.pickerHotKey(), Preferences::defaultPickerHotKey);
        QCOMPARE(preferences.copyLastHotKey(), std::nullopt);
        QCOMPARE(preferences.classAttribute(), QString());
        QCOMPARE(preferences.bladePrefix(), u"x-tabler-"_qs);
    }

    // Numbers out of range in the file read as the nearer end, and so does
    // a value assigned in code.
    void numbersAreKeptInRange()
    {
        auto store = files.withText("[General]\nrecentsLimit=100000\ndefaultStroke=-2\n"
                                    "defaultSize=-5\npngPadding=99999999999\n");
        Preferences preferences(*store);
        QCOMPARE(preferences.recentsLimit(), 500);
        QCOMPARE(preferences.defaultStroke(), 0.1);
        QCOMPARE(preferences.defaultSize(), 1);
        QCOMPARE(preferences.pngPadding(), 1024);
        preferences.setDefaultSize(5000);
        QCOMPARE(preferences.defaultSize(), 4096);
        QCOMPARE(store->intValue(u"defaultSize"_qs), 4096);
    }

    void shortcutsAcrossRelaunches()
    {
        auto store = files.fresh();
        const KeyCombo custom{0, KeyCombo::commandFlag | KeyCombo::shiftFlag};
        Preferences(*store).setPickerHotKey(std::nullopt);
        Preferences(*store).setCopyLastHotKey(custom);
        store = files.relaunch(std::move(store));
        QCOMPARE(store->bytesValue(u"pickerHotKey"_qs), QByteArray());
        QCOMPARE(Preferences(*store).pickerHotKey(), std::nullopt);
        QCOMPARE(Preferences(*store).copyLastHotKey(), custom);

        store->remove(u"pickerHotKey"_qs);
        store->setBytes(u"copyLastHotKey"_qs, "{\"keyCode\":");
        store = files.relaunch(std::move(store));
        QCOMPARE(Preferences(*store).pickerHotKey(), Preferences::defaultPickerHotKey);
        QCOMPARE(Preferences(*store).copyLastHotKey(), Preferences::defaultCopyLastHotKey);
    }

    void textValuesAreCheckedBeforeStoring_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<std::optional<QString>>("reads");
        const std::optional<QString> refused;
        QTest::newRow("int") << u"recentsLimit"_qs << u"500"_qs << std::optional(u"500"_qs);
        QTest::newRow("int, below its range") << u"recentsLimit"_qs << u"-3"_qs << refused;
        QTest::newRow("size, too large") << u"defaultSize"_qs << u"4097"_qs << refused;
        QTest::newRow("stroke, zero") << u"defaultStroke"_qs << u"0"_qs << refused;
        QTest::newRow("int, not a number") << u"recentsLimit"_qs << u"abc"_qs << refused;
        QTest::newRow("int, fraction") << u"defaultSize"_qs << u"2.5"_qs << refused;
        QTest::newRow("double") << u"defaultStroke"_qs << u"1.75"_qs << std::optional(u"1.75"_qs);
        QTest::newRow("double, infinite") << u"defaultStroke"_qs << u"inf"_qs << refused;
        QTest::newRow("bool") << u"png3x"_qs << u"TRUE"_qs << std::optional(u"true"_qs);
        QTest::newRow("bool, yes") << u"png3x"_qs << u"yes"_qs << refused;
        QTest::newRow("enum") << u"reactLanguage"_qs << u"jsx"_qs << std::optional(u"jsx"_qs);
        QTest::newRow("enum, wrong case") << u"reactLanguage"_qs << u"JSX"_qs << refused;
        QTest::newRow("string, empty")
            << u"classAttribute"_qs << QString() << std::optional(QString());
        QTest::newRow("shortcut") << u"pickerHotKey"_qs << uR"({"keyCode":8,"modifiers":0})"_qs
                                  << std::optional(uR"({"keyCode":8,"modifiers":0})"_qs);
        QTest::newRow("shortcut, broken") << u"pickerHotKey"_qs << u"{"_qs << refused;
        QTest::newRow("colour") << u"defaultColor"_qs << u"#ff000080"_qs
                                << std::optional(u"#ff000080"_qs);
        QTest::newRow("colour, not one the export knows")
            << u"defaultColor"_qs << u"red\" onload=\"x"_qs << refused;
    }
    void textValuesAreCheckedBeforeStoring()
    {
        QFETCH(QString, key);
        QFETCH(QString, text);
        QFETCH(std::optional<QString>, reads);
        auto store = files.fresh();
        Preferences preferences(*store);
        const QString before = preferences.valueText(key);
        const auto error = preferences.setValueText(key, text);
        QCOMPARE(error.has_value(), !reads);
        QCOMPARE(store->contains(key), reads.has_value());
        QCOMPARE(preferences.valueText(key), reads.value_or(before));
        if (error)
            QVERIFY2(error->contains(key), qPrintable(*error));
    }

    // Another process's change reaches the running program's properties: each
    // changed value signals once, an unchanged one not at all, and nothing is
    // written back.
    void reloadSignalsOnlyChangedValues()
    {
        auto store = files.fresh();
        Preferences preferences(*store);
        SettingsStore otherStore(store->filePath());
        Preferences other(otherStore);
        other.setAppearance(AppearanceMode::dark);
        other.setPickerHotKey(Preferences::defaultPickerHotKey);
        const QByteArray written = TestData::readFile(store->filePath());
        QSignalSpy appearance(&preferences, &Preferences::appearanceChanged);
        QSignalSpy hotKey(&preferences, &Preferences::pickerHotKeyChanged);

        QVERIFY(store->refresh());
        preferences.reload();
        QCOMPARE(preferences.appearance(), AppearanceMode::dark);
        QCOMPARE(appearance.size(), 1);
        QCOMPARE(hotKey.size(), 0);
        preferences.reload();
        QCOMPARE(appearance.size(), 1);
        QCOMPARE(TestData::readFile(store->filePath()), written);
    }
};

QTEST_GUILESS_MAIN(TestPreferences)
#include "tst_preferences.moc"
