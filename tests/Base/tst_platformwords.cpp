#include "Base/PlatformWords.h"
#include "Base/PreferenceOptions.h"

#include <QTest>

using PlatformWords::Text;

class TestPlatformWords : public QObject {
    Q_OBJECT

private slots:
    void wordings_data()
    {
        QTest::addColumn<QString>("mac");
        QTest::addColumn<QString>("pc");
        const auto row = [](const char* name, Text text) {
            QTest::newRow(name) << PlatformWords::text(text, Rendition::mac)
                                << PlatformWords::text(text, Rendition::pc);
        };
        row("tagline", Text::tagline);
        row("stored", Text::storedHere);
        row("caption", Text::showIconCaption);
        row("drag hint", Text::dragAnyInto);
        QTest::newRow("picker position")
            << PreferenceLabels::label(PickerPosition::underMenuBarIcon, Rendition::mac)
            << PreferenceLabels::label(PickerPosition::underMenuBarIcon, Rendition::pc);
    }
    void wordings()
    {
        QFETCH(QString, mac);
        QFETCH(QString, pc);
        static const QStringList expected{
            u"A menu bar picker for the Tabler icon set."_qs,
            u"A tray picker for the Tabler icon set."_qs,
            u"stored on this Mac"_qs,
            u"stored on this computer"_qs,
            u"When hidden, open Pictray with the shortcut or from Spotlight."_qs,
            u"When hidden, open Pictray with the shortcut or by starting Pictray again."_qs,
            u"Drag any icon into Figma, Keynote or Slack"_qs,
            u"Drag any icon into Figma, Inkscape or Slack"_qs,
            u"Under the menu bar icon"_qs,
            u"Under the tray icon"_qs,
        };
        const qsizetype at = expected.indexOf(mac);
        QVERIFY2(at >= 0 && at % 2 == 0, qPrintable(mac));
        QCOMPARE(pc, expected.at(at + 1));
    }

    // A text left in the Mac's words on Linux would name places it lacks.
    void pcTextsNameNoMacPlace()
    {
        for (int i = 0; i < PlatformWords::textCount; ++i) {
            const QString pc = PlatformWords::text(Text(i), Rendition::pc);
            const QString mac = PlatformWords::text(Text(i), Rendition::mac);
            QVERIFY(!mac.isEmpty());
            for (const QString& word : {u"menu bar"_qs, u"Mac"_qs, u"Spotlight"_qs, u"Keynote"_qs})
                QVERIFY2(!pc.contains(word), qPrintable(pc));
            QVERIFY2(pc != mac, qPrintable(pc));
        }
    }
};

QTEST_GUILESS_MAIN(TestPlatformWords)
#include "tst_platformwords.moc"
