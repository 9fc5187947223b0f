#include "Panel/PanelPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

using namespace PanelPlacement;
using Area = std::optional<QRect>;

Q_DECLARE_METATYPE(PickerPosition)
Q_DECLARE_METATYPE(Area)
Q_DECLARE_METATYPE(WindowingSession)

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
        QTest::addColumn<WindowingSession>("session");

        const auto under = PickerPosition::underMenuBarIcon, centred = PickerPosition::centered,
                   mouse = PickerPosition::mouse;
        const Area topBar = QRect(0, 24, 1920, 1056), whole = QRect(0, 0, 1920, 1080),
                   bottomBar = QRect(0, 0, 1920, 1040), shortScreen = QRect(0, 0, 1440, 600);
        const QPoint anywhere(900, 500);
        const auto row = [](const char* name, PickerPosition position, Area area, QPoint cursor,
                            QRect tray, QRect frame, double arrowX = -1, bool down = false,
                            WindowingSession session = WindowingSession::x11()) {
            QTest::newRow(name) << position << area << cursor << tray << frame << arrowX << down
                                << session;
        };

        // Under the tray icon: x and y by the icon, the arrow pointing at it.
        row("icon in a top bar", under, topBar, anywhere, {1000, 0, 24, 24}, {622, 28, 780, 741},
            390);
        // Near an edge the panel gives up its margin for the arrow.
        row("icon at the right edge", under, topBar, anywhere, {1880, 0, 24, 24},
            {1140, 28, 780, 741}, 751);
        row("icon at the left edge", under, topBar, anywhere, {0, 0, 24, 24}, {0, 28, 780, 741},
            29);
        row("tray reserving no space", under, whole, anywhere, {1000, 0, 24, 30},
            {622, 34, 780, 741}, 390);
        row("unknown tray geometry", under, topBar, anywhere, {}, {1128, 28, 780, 741}, 740);
        row("tray at the bottom", under, bottomBar, anywhere, {1500, 1048, 24, 24},
            {1122, 295, 780, 741}, 390, true);
        row("bottom tray reserving no space", under, whole, anywhere, {1500, 1048, 24, 24},
            {1122, 303, 780, 741}, 390, true);
        // A short screen takes whole grid rows off the body, at most two,
        // so the panel fits between the tray and the far edge.
        row("1280x720, top tray", under, QRect(0, 28, 1280, 692), anywhere, {1200, 2, 24, 24},
            {492, 32, 780, 679}, 720);
        row("1280x720, bottom tray", under, QRect(0, 0, 1280, 680), anywhere, {1200, 688, 24, 24},
            {492, 59, 780, 617}, 720, true);
        row("bottom tray, shorter still: tray edge wins", under, shortScreen, anywhere,
            {700, 590, 20, 20}, {320, -21, 780, 617}, 390, true);
        // Centred, 8 % above the middle; at the pointer, 12 below it.
        row("centred", centred, topBar, anywhere, {1000, 0, 24, 24}, {570, 103, 780, 730});
        row("centred left of the primary", centred, QRect(-1920, 0, 1920, 1080), anywhere, {},
            {-1350, 89, 780, 730});
        row("no screen: fallback area", centred, Area(), anywhere, {}, {330, 13, 780, 730});
        row("mouse", mouse, topBar, {900, 200}, {}, {510, 212, 780, 730});
        row("mouse near the bottom", mouse, topBar, {900, 1000}, {}, {510, 342, 780, 730});
        row("mouse above the area", mouse, topBar, {900, 0}, {}, {510, 28, 780, 730});
        row("narrow screen: right margin wins", mouse, QRect(0, 0, 700, 900), {350, 100}, {},
            {-88, 112, 780, 730});
        row("short screen: top margin wins", mouse, shortScreen, {700, 100}, {},
            {310, 4, 780, 606});
        // Where the compositor places windows, every setting opens the
        // centred panel, and a tray that cannot tell is not believed.
        const auto compositor = WindowingSession::compositorPlaced();
        row("compositor: under the icon", under, topBar, anywhere, {1000, 0, 24, 24},
            {570, 103, 780, 730}, -1, false, compositor);
        row("compositor: at the pointer", mouse, topBar, {900, 200}, {}, {570, 103, 780, 730}, -1,
            false, compositor);
        row("tray without a frame", under, topBar, anywhere, {1000, 0, 24, 24},
            {1128, 28, 780, 741}, 740, false, WindowingSession{true, false});
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
        QFETCH(WindowingSession, session);

        const Placement placement = PanelPlacement::place(position, area, cursor, tray, session);
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
