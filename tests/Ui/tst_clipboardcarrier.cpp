#include "Ui/ClipboardCarrier.h"

#include <QGuiApplication>
#include <QTest>

// Offers wait for a focused window of the program, in order, and the carrier
// goes once they are made.
class TestClipboardCarrier : public QObject {
    Q_OBJECT

private slots:
    void offersWaitForTheCarriersFocus()
    {
        QVERIFY(!QGuiApplication::focusWindow());
        ClipboardCarrier carrier;
        QStringList made;
        carrier.carry([&made] { made << u"clear"_qs; });
        carrier.carry([&made] { made << u"text"_qs; });
        QVERIFY(made.isEmpty());
        QTRY_COMPARE(made, (QStringList{u"clear"_qs, u"text"_qs}));
        QTRY_VERIFY(!carrier.isVisible());
    }

    void aFocusedWindowOffersAtOnce()
    {
        QWindow window;
        window.show();
        window.requestActivate();
        QTRY_COMPARE(QGuiApplication::focusWindow(), &window);
        ClipboardCarrier carrier;
        bool made = false;
        carrier.carry([&made] { made = true; });
        QVERIFY(made);
        QVERIFY(!carrier.isVisible());
    }
};

QTEST_MAIN(TestClipboardCarrier)
#include "tst_clipboardcarrier.moc"
