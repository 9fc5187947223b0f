#include "State/AtomicFile.h"
#include "State/Preferences.h"
#include "State/UserLibrary.h"
#include "StoreFiles.h"

#include <QSignalSpy>
#include <QTest>

namespace {

const QStringList catalogue{u"star"_qs, u"heart"_qs, u"home"_qs, u"bell"_qs, u"user"_qs,
                            u"x"_qs,    u"check"_qs, u"plus"_qs, u"minus"_qs};

UserLibrary::LastCopy copyOf(const QString& name)
{
    return {name, IconStyle::filled, ExportFormat::png2, u"#ff0000"_qs, 32, 1.5};
}

} // namespace

class TestUserLibrary : public QObject {
    Q_OBJECT

    StoreFiles files;
    std::unique_ptr<SettingsStore> store;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<UserLibrary> library;

    void relaunch()
    {
        library.reset();
        preferences.reset();
        store = files.relaunch(std::move(store));
        preferences = std::make_unique<Preferences>(*store);
        library = std::make_unique<UserLibrary>(
            *store, *preferences, [](const QString& name) { return catalogue.contains(name); });
    }

    void copy(const QStringList& names)
    {
        for (const QString& name : names)
            library->recordCopy(copyOf(name));
    }

private slots:
    void init()
    {
        store = files.fresh();
        relaunch();
    }

    void recentsKeepOrderWithoutDuplicates()
    {
        copy({u"user"_qs, u"bell"_qs, u"home"_qs, u"heart"_qs, u"star"_qs});
        const QStringList before = library->recents();
        copy({u"star"_qs});
        QCOMPARE(library->recents(), before);
        copy({u"user"_qs});
        QCOMPARE(library->recents(),
                 (QStringList{u"user"_qs, u"star"_qs, u"heart"_qs, u"home"_qs, u"bell"_qs}));
        relaunch();
        QCOMPARE(library->recents().first(), u"user"_qs);
        QCOMPARE(library->lastCopy(), copyOf(u"user"_qs));
    }

    void recentsLimit_data()
    {
        QTest::addColumn<qint64>("limit");
        QTest::addColumn<int>("kept");
        QTest::newRow("lowered to 8") << qint64(8) << 8;
        QTest::newRow("zero") << qint64(0) << 0;
        QTest::newRow("negative") << qint64(-5) << 0;
    }
    void recentsLimit()
    {
        QFETCH(qint64, limit);
        QFETCH(int, kept);
        copy(catalogue);
        const QStringList all = library->recents();
        QCOMPARE(all.size(), catalogue.size());
        preferences->setRecentsLimit(limit);
        library->trimRecents();
        QCOMPARE(library->recents(), all.mid(0, kept));
        copy({u"star"_qs});
        QCOMPARE(library->recents().size(), kept);
        QCOMPARE(library->lastCopy(), copyOf(u"star"_qs));
        relaunch();
        QCOMPARE(library->recents().size(), kept);
    }

    void toggleTwiceMovesToTheEnd()
    {
        QSignalSpy spy(library.get(), &UserLibrary::favoritesChanged);
        for (const QString& name : {u"star"_qs, u"heart"_qs, u"home"_qs, u"star"_qs, u"star"_qs})
            library->toggleFavorite(name);
        QCOMPARE(library->favorites(), (QStringList{u"heart"_qs, u"home"_qs, u"star"_qs}));
        QCOMPARE(spy.count(), 5);
        relaunch();
        QCOMPARE(library->favorites(), (QStringList{u"heart"_qs, u"home"_qs, u"star"_qs}));
    }

    void exportRoundTrips()
    {
        library->toggleFavorite(u"star"_qs);
        library->toggleFavorite(u"bell"_qs);
        const QByteArray exported = library->exportFavorites();
        QCOMPARE(exported, QByteArray("{\n    \"app\": \"Pictray\",\n    \"favorites\": [\n"
                                      "        \"star\",\n        \"bell\"\n    ],\n"
                                      "    \"version\": 1\n}\n"));
        init();
        QCOMPARE(library->importFavorites(exported), 2);
        QCOMPARE(library->favorites(), (QStringList{u"star"_qs, u"bell"_qs}));
    }

    void refusesWhatIsNotAnExport_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
        QTest::newRow("no favorites key") << QByteArray(R"({"app":"Pictray"})");
        QTest::newRow("a number in the list") << QByteArray(R"(["star",3])");
        QTest::newRow("trailing garbage") << QByteArray(R"(["star"] x)");
        QTest::newRow("deeply nested") << QByteArray(200000, '[') + QByteArray(200000, ']');
        QTest::newRow("over the size cap")
            << QByteArray(R"(["star"])") + QByteArray(UserLibrary::maxImportBytes, ' ');
    }
    void refusesWhatIsNotAnExport()
    {
        QFETCH(QByteArray, data);
        library->toggleFavorite(u"home"_qs);
        QCOMPARE(library->importFavorites(data), std::nullopt);
        QCOMPARE(library->favorites(), QStringList{u"home"_qs});
    }

    void importedCountIsPlural()
    {
        QCOMPARE(UserLibrary::importedMessage(1), u"Imported 1 new favorite."_qs);
    }

    void undecodableLastCopyIsLeftAlone()
    {
        store->setBytes(u"lastCopy"_qs, R"({"name":"star","style":"bold"})");
        relaunch();
        QCOMPARE(library->lastCopy(), std::nullopt);
        QCOMPARE(store->bytesValue(u"lastCopy"_qs),
                 QByteArray(R"({"name":"star","style":"bold"})"));
        QCOMPARE(UserLibrary::LastCopy::fromJson(copyOf(u"x"_qs).toJson()), copyOf(u"x"_qs));
        QCOMPARE(
            UserLibrary::LastCopy::fromJson(
                R"({"name":"x","style":"outline","format":"svg","color":"","size":24.5,"stroke":2})"),
            std::nullopt);
    }

    // The running tray and a command share the file: a change from either
    // applies to the list the file holds, never to a list read earlier.
    void changesApplyToTheStoredLists()
    {
        SettingsStore otherStore(store->filePath());
        Preferences otherPreferences(otherStore);
        UserLibrary other(otherStore, otherPreferences, [](const QString&) { return true; });
        other.toggleFavorite(u"star"_qs);
        other.recordCopy(copyOf(u"bell"_qs));

        library->toggleFavorite(u"home"_qs);
        QCOMPARE(library->importFavorites(R"({"app":"Other","favorites":["star","user"]})"), 1);
        copy({u"heart"_qs});
        QCOMPARE(library->favorites(), (QStringList{u"star"_qs, u"home"_qs, u"user"_qs}));
        QCOMPARE(library->recents(), (QStringList{u"heart"_qs, u"bell"_qs}));
        relaunch();
        QCOMPARE(library->favorites(), (QStringList{u"star"_qs, u"home"_qs, u"user"_qs}));
    }

    void reloadSignalsWhatAnotherProcessChanged()
    {
        copy({u"heart"_qs});
        SettingsStore otherStore(store->filePath());
        Preferences otherPreferences(otherStore);
        UserLibrary other(otherStore, otherPreferences, [](const QString&) { return true; });
        other.setFavorite({u"star"_qs}, true);
        QSignalSpy favorites(library.get(), &UserLibrary::favoritesChanged);
        QSignalSpy recents(library.get(), &UserLibrary::recentsChanged);
        QSignalSpy lastCopy(library.get(), &UserLibrary::lastCopyChanged);
        QVERIFY(store->refresh());
        library->reload();
        QCOMPARE(library->favorites(), QStringList{u"star"_qs});
        QCOMPARE(favorites.size(), 1);
        QCOMPARE(recents.size(), 0);
        QCOMPARE(lastCopy.size(), 0);
    }

    void importAndExportFiles()
    {
        QString error;
        QCOMPARE(UserLibrary::readImportFile(u"/dev/zero"_qs, &error), std::nullopt);
        QCOMPARE(error, UserLibrary::tooLargeMessage());
        QCOMPARE(UserLibrary::readImportFile(files.path(u"missing.json"_qs), &error), std::nullopt);
        QVERIFY(error.contains(u"missing.json"));

        const QString path = files.path(UserLibrary::exportFileName());
        QCOMPARE(writeFileAtomically(path, "[]"), std::nullopt);
        QCOMPARE(UserLibrary::readImportFile(path, &error), QByteArray("[]"));
        const auto failed = writeFileAtomically(files.path(u"no/such/dir/f.json"_qs), "[]");
        QVERIFY(failed && failed->contains(u"f.json"));
    }
};

QTEST_GUILESS_MAIN(TestUserLibrary)
#include "tst_userlibrary.moc"
