#include "Base/KeyCombo.h"
#include "Platform/Xkb/XkbKeyboardLayout.h"

#include <QTest>

class TestKeyCombo : public QObject {
    Q_OBJECT

    std::unique_ptr<KeyboardLayout> us = XkbKeyboardLayout::fromNames(QStringLiteral("us"));
    std::unique_ptr<KeyboardLayout> de = XkbKeyboardLayout::fromNames(QStringLiteral("de"));

    static constexpr quint64 capsLock = 0x10000;

private slots:
    void initTestCase()
    {
        QVERIFY(us);
        QVERIFY(de);
    }

    void renditions_data()
    {
        QTest::addColumn<quint64>("modifiers");
        QTest::addColumn<KeyCombo::Rendition>("rendition");
        QTest::addColumn<QStringList>("caps");
        QTest::addColumn<QString>("spoken");
        const quint64 all = 0x1E0000 | capsLock;
        QTest::newRow("pc, all") << all << KeyCombo::Rendition::pc
                                 << QStringList{u"Ctrl"_qs, u"Alt"_qs, u"Shift"_qs, u"Super"_qs,
                                                u"I"_qs}
                                 << u"Control Alt Shift Super I"_qs;
        QTest::newRow("mac, all") << all << KeyCombo::Rendition::mac
                                  << QStringList{u"⌃"_qs, u"⌥"_qs, u"⇧"_qs, u"⌘"_qs, u"I"_qs}
                                  << u"Control Option Shift Command I"_qs;
        QTest::newRow("pc, command only") << KeyCombo::commandFlag << KeyCombo::Rendition::pc
                                          << QStringList{u"Super"_qs, u"I"_qs} << u"Super I"_qs;
    }
    void renditions()
    {
        QFETCH(quint64, modifiers);
        QFETCH(KeyCombo::Rendition, rendition);
        QFETCH(QString, spoken);
        const KeyCombo combo{34, modifiers};
        QTEST(combo.keyCaps(rendition, us.get()), "caps");
        QCOMPARE(combo.spoken(rendition, us.get()), spoken);
    }

    void keyNames_data()
    {
        QTest::addColumn<quint32>("keyCode");
        QTest::addColumn<QString>("onUS");
        QTest::addColumn<QString>("onGerman");
        QTest::newRow("return is fixed") << 36u << u"↩"_qs << u"↩"_qs;
        QTest::newRow("Z key") << 6u << u"Z"_qs << u"Y"_qs;
        QTest::newRow("semicolon key") << 41u << u";"_qs << u"Ö"_qs;
        QTest::newRow("minus key upper-cases sharp s") << 27u << u"-"_qs << u"SS"_qs;
        QTest::newRow("dead key shows its accent") << 24u << u"="_qs << u"´"_qs;
        // Named by what they type with NumLock on, as their caps are printed.
        QTest::newRow("keypad 1") << 83u << u"1"_qs << u"1"_qs;
        QTest::newRow("keypad decimal") << 65u << u"."_qs << u","_qs;
        QTest::newRow("keypad enter is fixed") << 76u << u"⌤"_qs << u"⌤"_qs;
        QTest::newRow("no physical key") << 63u << u"?"_qs << u"?"_qs;
        QTest::newRow("beyond 16 bits") << 0x10022u << u"?"_qs << u"?"_qs;
    }
    void keyNames()
    {
        QFETCH(quint32, keyCode);
        QTEST(KeyCombo::keyName(keyCode, us.get()), "onUS");
        QTEST(KeyCombo::keyName(keyCode, de.get()), "onGerman");
    }

    void noLayoutNamesOnlyFixedKeys()
    {
        QCOMPARE(KeyCombo::keyName(34, nullptr), u"?"_qs);
        QCOMPARE(KeyCombo::keyName(53, nullptr), u"⎋"_qs);
    }

    void json()
    {
        const KeyCombo combo{34, 0xC0000};
        QCOMPARE(combo.toJson(), QByteArray(R"({"keyCode":34,"modifiers":786432})"));
        QCOMPARE(KeyCombo::fromJson(combo.toJson()), combo);
        QCOMPARE(KeyCombo::fromJson(R"({"modifiers":262144,"extra":[1],"keyCode":8})"),
                 (KeyCombo{8, 0x40000}));
    }

    void undecodableJson_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("array") << QByteArray("[34,786432]");
        QTest::newRow("missing modifiers") << QByteArray(R"({"keyCode":34})");
        QTest::newRow("string number") << QByteArray(R"({"keyCode":"34","modifiers":0})");
        QTest::newRow("negative") << QByteArray(R"({"keyCode":-1,"modifiers":0})");
        QTest::newRow("fraction") << QByteArray(R"({"keyCode":34.5,"modifiers":0})");
        QTest::newRow("key code over 32 bits")
            << QByteArray(R"({"keyCode":4294967296,"modifiers":0})");
        QTest::newRow("truncated") << QByteArray("{\"keyCode\":34,\"modif");
    }
    void undecodableJson()
    {
        QFETCH(QByteArray, json);
        QCOMPARE(KeyCombo::fromJson(json), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(TestKeyCombo)
#include "tst_keycombo.moc"
