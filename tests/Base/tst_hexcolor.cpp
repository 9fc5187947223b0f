#include "Base/HexColor.h"

#include <QTest>

class TestHexColor : public QObject {
    Q_OBJECT

private slots:
    void readsCssOrderWithAlphaLast_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QColor>("color");
        QTest::newRow("#rgb") << u"#f80"_qs << QColor(0xFF, 0x88, 0x00);
        QTest::newRow("#rgba") << u"#f808"_qs << QColor(0xFF, 0x88, 0x00, 0x88);
        QTest::newRow("#rrggbb") << u"#DC2626"_qs << QColor(0xDC, 0x26, 0x26);
        QTest::newRow("#rrggbbaa") << u"#DC262680"_qs << QColor(0xDC, 0x26, 0x26, 0x80);
        QTest::newRow("mixed case, spaces around") << u" #0068dA "_qs << QColor(0x00, 0x68, 0xDA);
    }
    void readsCssOrderWithAlphaLast()
    {
        QFETCH(QString, text);
        QFETCH(QColor, color);
        QCOMPARE(HexColor::parse(text), std::optional(color));
    }

    void refusesAnythingElse_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString& text : {u"currentColor"_qs, u""_qs, u"#"_qs, u"DC2626"_qs, u"#DC"_qs,
                                    u"#DC262"_qs, u"#DC2626800"_qs, u"#GG2626"_qs, u"#0x1234"_qs,
                                    u"#+12345"_qs, u"# 12345"_qs, u"#-fff"_qs, u"red"_qs})
            QTest::addRow("%s", qPrintable(text)) << text;
    }
    void refusesAnythingElse()
    {
        QFETCH(QString, text);
        QCOMPARE(HexColor::parse(text), std::nullopt);
    }

    // What a colour field stores for what was typed; nothing means refused.
    void typedTextIsNormalised_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::newRow("any case of currentColor") << u" CurrentColor "_qs << u"currentColor"_qs;
        QTest::newRow("three digits, no #") << u"f80"_qs << u"#FF8800"_qs;
        QTest::newRow("six digits") << u"#dc2626"_qs << u"#DC2626"_qs;
        QTest::newRow("alpha kept") << u"DC262680"_qs << u"#DC262680"_qs;
        QTest::newRow("opaque alpha dropped") << u"#f80f"_qs << u"#FF8800"_qs;
        QTest::newRow("not a colour") << u"zz"_qs << QString();
        QTest::newRow("empty") << u"  "_qs << QString();
    }
    void typedTextIsNormalised()
    {
        QFETCH(QString, typed);
        QTEST(HexColor::fromTyped(typed).value_or(QString()), "stored");
    }
};

QTEST_GUILESS_MAIN(TestHexColor)
#include "tst_hexcolor.moc"
