#include "StoreFiles.h"
#include "TestData.h"

#include <QTest>

class TestSettingsStore : public QObject {
    Q_OBJECT

    StoreFiles files;

private slots:
    void valuesSurviveARelaunch()
    {
        auto store = files.fresh();
        const QByteArray binary("\0\x01\xff\n\"@ByteArray(x)", 18);
        const QStringList names{QStringLiteral("a,b"), QStringLiteral("c \"d\"")};
        store->setBool(u"bool"_qs, true);
        store->setInt(u"int"_qs, -(qint64(1) << 40));
        store->setDouble(u"double"_qs, 2.25);
        store->setString(u"empty string"_qs, QString());
        store->setString(u"tricky string"_qs, u" @a, b; ’ "_qs);
        store->setBytes(u"empty bytes"_qs, QByteArray());
        store->setBytes(u"binary"_qs, binary);
        store->setStringList(u"no names"_qs, {});
        store->setStringList(u"one name"_qs, {u"star"_qs});
        store->setStringList(u"names"_qs, names);
        QCOMPARE(store->writeError(), std::nullopt);

        store = files.relaunch(std::move(store));
        QCOMPARE(store->boolValue(u"bool"_qs), true);
        QCOMPARE(store->intValue(u"int"_qs), -(qint64(1) << 40));
        QCOMPARE(store->doubleValue(u"double"_qs), 2.25);
        QCOMPARE(store->stringValue(u"empty string"_qs), QString());
        QCOMPARE(store->stringValue(u"tricky string"_qs), u" @a, b; ’ "_qs);
        QCOMPARE(store->bytesValue(u"empty bytes"_qs), QByteArray());
        QVERIFY(store->contains(u"empty bytes"_qs));
        QCOMPARE(store->bytesValue(u"binary"_qs), binary);
        QCOMPARE(store->stringListValue(u"no names"_qs), QStringList());
        QCOMPARE(store->stringListValue(u"one name"_qs), QStringList{u"star"_qs});
        QCOMPARE(store->stringListValue(u"names"_qs), names);
        QCOMPARE(store->bytesValue(u"missing"_qs), std::nullopt);
        QCOMPARE(store->stringValue(u"missing"_qs), std::nullopt);
    }

    void registeredDefaultsAreNeverWritten()
    {
        auto store = files.fresh();
        store->registerDefaults({{u"size"_qs, qint64(24)}, {u"on"_qs, true}});
        QCOMPARE(store->intValue(u"size"_qs), 24);
        store->setBool(u"on"_qs, false);
        QCOMPARE(store->writeError(), std::nullopt);
        QCOMPARE(store->userKeys(), QStringList{u"on"_qs});
        store->remove(u"on"_qs);
        QCOMPARE(store->boolValue(u"on"_qs), true);
        QCOMPARE(store->writeError(), std::nullopt);
        QVERIFY(files.relaunch(std::move(store))->userKeys().isEmpty());
    }

    void wrongTypesReadAsTheDefault()
    {
        auto store = files.withText("[General]\n"
                                    "size=abc\nstroke=thick\non=maybe\nnan=nan\n"
                                    "bytes=@Invalid()\nlist=@ByteArray(x)\n"
                                    "unregistered=abc\nlenient=\" TRUE \"\n");
        store->registerDefaults({{u"size"_qs, qint64(24)},
                                 {u"stroke"_qs, 2.0},
                                 {u"on"_qs, true},
                                 {u"nan"_qs, 1.5},
                                 {u"list"_qs, QStringList{u"x"_qs}}});
        QCOMPARE(store->intValue(u"size"_qs), 24);
        QCOMPARE(store->doubleValue(u"stroke"_qs), 2.0);
        QCOMPARE(store->boolValue(u"on"_qs), true);
        QCOMPARE(store->doubleValue(u"nan"_qs), 1.5);
        QCOMPARE(store->bytesValue(u"bytes"_qs), std::nullopt);
        QCOMPARE(store->stringListValue(u"list"_qs), QStringList{u"x"_qs});
        QCOMPARE(store->intValue(u"unregistered"_qs), 0);
        QCOMPARE(store->boolValue(u"lenient"_qs), true);
    }

    // What another process left is taken only when it reads in whole.
    void refreshTakesOnlyWholeFiles_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("taken");
        QTest::newRow("complete") << QByteArray("[General]\nsize=12\nother=1\n") << true;
        QTest::newRow("emptied") << QByteArray() << true;
        QTest::newRow("last line unfinished") << QByteArray("[General]\nsize=1") << false;
        QTest::newRow("unparsable line") << QByteArray("[General]\nsize=12\n[oops\n") << false;
    }
    void refreshTakesOnlyWholeFiles()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, taken);
        auto store = files.withText("[General]\nsize=24\n");
        TestData::writeFile(store->filePath(), text);
        QCOMPARE(store->refresh(), taken);
        if (taken)
            QCOMPARE(store->intValue(u"size"_qs), text.isEmpty() ? 0 : 12);
        // Refreshing writes nothing, not even a damaged file's copy.
        QCOMPARE(TestData::readFile(store->filePath()), text);
        QVERIFY(!QFile::exists(store->filePath() + u".damaged"_qs));
    }
};

QTEST_GUILESS_MAIN(TestSettingsStore)
#include "tst_settingsstore.moc"
