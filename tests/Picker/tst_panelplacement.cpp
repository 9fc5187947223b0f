#include "Picker/Panel/PanelPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

using namespace PanelPlacement;
using Area = std::optional<QRect>;

Q_DECLARE_METATYPE(PickerPosition)
Q_DECLARE_METATYPE(Area)

class TestPanelPlacement : public QObject {
    Q_OBJECT

private slots:
    void place_data()
    {
        QTest::addColumn<PickerPosition>("position");
        QTest::addColumn<Area>("area");
        QTest::addColumn<QPoint>("cursor");
        QTest::addColumn<QRect>("tray");
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<double>("arrowX"); // -1: none
        QTest::addColumn<bool>("arrowDown");

        const auto under = PickerPosition::underMenuBarIcon;
        const Area topBar = QRect(0, 24, 1920, 1056); // a 24-high panel at the top
        const Area whole = QRect(0, 0, 1920, 1080);
        const Area bottomBar = QRect(0, 0, 1920, 1040);
        const QPoint anywhere(900, 500);

        QTest::newRow("icon in a top bar") << under << topBar << anywhere << QRect(1000, 0, 24, 24)
                                           << QRect(622, 28, 780, 741) << 390.0 << false;
        QTest::newRow("icon at the right edge: pushed left, arrow at its end")
            << under << topBar << anywhere << QRect(1880, 0, 24, 24) << QRect(1132, 28, 780, 741)
            << 751.0 << false;
        QTest::newRow("icon at the left edge: arrow at its start")
            << under << topBar << anywhere << QRect(0, 0, 24, 24) << QRect(8, 28, 780, 741) << 29.0
            << false;
        QTest::newRow("tray reserving no space: below the icon")
            << under << whole << anywhere << QRect(1000, 0, 24, 30) << QRect(622, 34, 780, 741)
            << 390.0 << false;
        QTest::newRow("unknown tray geometry") << under << topBar << anywhere << QRect()
                                               << QRect(1128, 28, 780, 741) << 740.0 << false;
        QTest::newRow("tray at the bottom: above it, arrow down")
            << under << bottomBar << anywhere << QRect(1500, 1048, 24, 24)
            << QRect(1122, 295, 780, 741) << 390.0 << true;
        QTest::newRow("bottom tray reserving no space: above the icon")
            << under << whole << anywhere << QRect(1500, 1048, 24, 24) << QRect(1122, 303, 780, 741)
            << 390.0 << true;
        QTest::newRow("bottom tray, screen too short: the tray's edge wins")
            << under << Area(QRect(0, 0, 1440, 600)) << anywhere << QRect(700, 590, 20, 20)
            << QRect(320, -145, 780, 741) << 390.0 << true;
        QTest::newRow("centred, lifted by 8 %")
            << PickerPosition::centered << topBar << anywhere << QRect(1000, 0, 24, 24)
            << QRect(570, 103, 780, 730) << -1.0 << false;
        QTest::newRow("centred on a screen left of the primary")
            << PickerPosition::centered << Area(QRect(-1920, 0, 1920, 1080)) << anywhere << QRect()
            << QRect(-1350, 89, 780, 730) << -1.0 << false;
        QTest::newRow("no screen: the fallback area")
            << PickerPosition::centered << Area() << anywhere << QRect() << QRect(330, 13, 780, 730)
            << -1.0 << false;
        QTest::newRow("mouse: 12 below the pointer")
            << PickerPosition::mouse << topBar << QPoint(900, 200) << QRect()
            << QRect(510, 212, 780, 730) << -1.0 << false;
        QTest::newRow("mouse near the bottom: raised to the bottom margin")
            << PickerPosition::mouse << topBar << QPoint(900, 1000) << QRect()
            << QRect(510, 342, 780, 730) << -1.0 << false;
        QTest::newRow("mouse above the area: lowered to the top margin")
            << PickerPosition::mouse << topBar << QPoint(900, 0) << QRect()
            << QRect(510, 28, 780, 730) << -1.0 << false;
        QTest::newRow("narrow screen: the right margin wins")
            << PickerPosition::mouse << Area(QRect(0, 0, 700, 900)) << QPoint(350, 100) << QRect()
            << QRect(-88, 112, 780, 730) << -1.0 << false;
        QTest::newRow("short screen: the top margin wins")
            << PickerPosition::mouse << Area(QRect(0, 0, 1440, 600)) << QPoint(700, 100) << QRect()
            << QRect(310, 4, 780, 730) << -1.0 << false;
    }

    void place()
    {
        QFETCH(PickerPosition, position);
        QFETCH(Area, area);
        QFETCH(QPoint, cursor);
        QFETCH(QRect, tray);
        QFETCH(QRect, frame);
        QFETCH(double, arrowX);
        QFETCH(bool, arrowDown);

        const Placement placement = PanelPlacement::place(position, area, cursor, tray);
        QCOMPARE(placement.frame, frame);
        QCOMPARE(placement.arrowX.value_or(-1), arrowX);
        QCOMPARE(placement.arrowDown, arrowDown);
    }

    void pointerOffEveryScreenUsesThePrimary()
    {
        QCOMPARE(availableAreaAt(QPoint(-100000, -100000)),
                 Area(QGuiApplication::primaryScreen()->availableGeometry()));
    }
};

QTEST_MAIN(TestPanelPlacement)
#include "tst_panelplacement.moc"
