#include "Base/PlatformWords.h"

#include <QTest>

using PlatformWords::Text;

class TestPlatformWords : public QObject {
    Q_OBJECT

private slots:
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
