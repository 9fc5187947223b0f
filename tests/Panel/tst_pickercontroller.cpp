#include "Panel/FormatMenu.h"
#include "Panel/PickerController.h"
#include "PickerFixture.h"
#include "TestData.h"

#include <QApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

using namespace std::chrono_literals;
using PackageConverter::OutEntry;

namespace {

// The format menu's icons and enough others for grid moves: 24 icons, three rows.
std::vector<OutEntry> catalogue()
{
    QStringList names{u"file-type-svg"_qs, u"brand-react"_qs,    u"brand-vue"_qs,
                      u"brand-laravel"_qs, u"brand-tailwind"_qs, u"link"_qs,
                      u"file-type-png"_qs, u"heart"_qs};
    for (int i = 0; names.size() < 24; ++i)
        names.append(QStringLiteral("shape-%1").arg(i));
    std::vector<OutEntry> out;
    const PathList d{"M4 12h16", "M12 4v16"};
    for (const QString& name : names)
        out.push_back({name, u"Misc"_qs, {}, d, d});
    return out;
}

QKeyEvent press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {})
{
    return QKeyEvent(QEvent::KeyPress, key, modifiers, text);
}

} // namespace

class TestPickerController : public QObject {
    Q_OBJECT

    std::unique_ptr<PickerFixture> f;
    std::unique_ptr<PickerController> controller;
    std::chrono::steady_clock::time_point now;
    int beeps = 0;

    // What one key did, in words: each effect the table can ask for.
    QString effectOf(const QKeyEvent& event, bool& consumed)
    {
        QSignalSpy settings(controller.get(), &PickerController::settingsRequested);
        QSignalSpy quit(controller.get(), &PickerController::quitRequested);
        const int index = f->model->selectedIndex(), focus = f->model->focusSearch();
        const qsizetype messages = f->targets.messages, favorites = f->user->favorites().size();
        const IconStyle style = f->model->style();
        const int beepsBefore = beeps;
        consumed = controller->handle(event);

        QStringList effects;
        if (f->model->selectedIndex() != index)
            effects << QStringLiteral("move:%1").arg(f->model->selectedIndex() - index);
        if (f->targets.messages > messages)
            effects << u"copy:"_qs + rawValue(f->user->lastCopy()->format);
        if (f->user->favorites().size() != favorites)
            effects << u"favorite"_qs;
        if (f->model->focusSearch() != focus)
            effects << u"focus"_qs;
        if (f->model->style() != style)
            effects << u"style"_qs;
        if (controller->showingMenu())
            effects << u"menu"_qs;
        if (!controller->isVisible())
            effects << u"hidden"_qs;
        for (const QList<QVariant>& call : settings)
            effects << u"settings:"_qs + call.at(0).toString();
        if (!quit.isEmpty())
            effects << u"quit"_qs;
        if (beeps > beepsBefore)
            effects << u"beep"_qs;
        return effects.join(u' ');
    }

    // Shows the panel with the keyboard, and `other` beside it to take it away.
    bool showPanelBeside(QWindow& other)
    {
        other.resize(50, 50);
        other.show();
        controller->show();
        return QTest::qWaitFor([&] { return controller->panel()->isActive(); });
    }

private slots:
    void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void init()
    {
        f = std::make_unique<PickerFixture>(catalogue());
        f->prefs.setAfterCopy(AfterCopy::keepOpen);
        f->prefs.setPickerPosition(PickerPosition::centered);
        controller = std::make_unique<PickerController>(*f->model, f->prefs, *f->user, *f->copy,
                                                        f->targets, nullptr);
        controller->setRootUrl(
            QUrl::fromLocalFile(TestData::sourcePath(u"tests/Panel/PanelStandIn.qml"_qs)));
        controller->setClock([this] { return now; });
        controller->setBeep([this] { ++beeps; });
        beeps = 0;
    }

    void cleanup()
    {
        controller.reset();
        f.reset();
    }

    void showPlacesTheWindowAndChoosesTheTab()
    {
        f->prefs.setPickerPosition(PickerPosition::underMenuBarIcon);
        controller->setTrayIconGeometry([] { return QRect(); }); // the tray does not say
        controller->show(PickerTab::favorites());
        QQuickWindow* panel = controller->panel();
        QVERIFY(panel && panel->isVisible());
        QCOMPARE(panel->contentItem()->childItems().size(), 1); // the root QML loaded
        QCOMPARE(panel->title(), u"Pictray"_qs);
        QCOMPARE(panel->flags() & (Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
                 Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        QCOMPARE(f->model->tab(), PickerTab::favorites());
        QCOMPARE(controller->popoverState().arrowX(), 740.0);
        const QRegion shape = panel->mask();
        QVERIFY(shape.contains(QPoint(740, 1)) && shape.contains(QPoint(390, 400)));
        QVERIFY(!shape.contains(QPoint(0, 11)) && !shape.contains(QPoint(700, 2)));

        controller->show(); // re-placed, still the same target to paste into
        QCOMPARE(f->targets.remembered, 1);
        QCOMPARE(f->model->tab(), PickerTab::favorites());

        controller->hide();
        QTRY_COMPARE(panel->size(), QSize(1, 1)); // drawn once more, to let its frame go
        f->prefs.setShowCategoryBar(false);
        f->prefs.setPickerPosition(PickerPosition::centered);
        controller->show();
        QCOMPARE(f->model->tab(), PickerTab::all());
        QCOMPARE(panel->size(), QSize(780, 730)); // no arrow
        QCOMPARE(f->targets.remembered, 2);
        // Shown again, it is drawn whole.
        const QImage frame = panel->grabWindow();
        QCOMPARE(frame.size(), QSize(780, 730) * panel->devicePixelRatio());
        QCOMPARE(frame.pixelColor(frame.width() - 20, frame.height() - 20), QColor(0xf5f5f5));
    }

    // A panel whose QML does not load is an empty window, not a crash: the
    // keys and the toggle still work.
    void brokenPanelQMLLeavesAWorkingController()
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("picker panel's QML did not load"));
        controller->setRootUrl(QUrl::fromLocalFile(f->dir.filePath(u"missing.qml"_qs)));
        controller->show();
        QVERIFY(controller->isVisible());
        QVERIFY(controller->panel()->contentItem()->childItems().isEmpty());
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QVERIFY(controller->handle(escape));
        QVERIFY(!controller->isVisible());
        controller->toggle();
        QVERIFY(controller->isVisible());
    }

    void keyTable_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("effect"); // empty: not consumed, left to the views

        const Qt::KeyboardModifiers none, ctrl = Qt::ControlModifier, alt = Qt::AltModifier,
                                          shift = Qt::ShiftModifier, keypad = Qt::KeypadModifier;
        const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers,
                            const char* effect) {
            QTest::newRow(name) << key << modifiers << QString::fromLatin1(effect);
        };
        row("keypad Enter", Qt::Key_Enter, keypad, "copy:jsx");
        row("Shift+Return", Qt::Key_Return, shift, "copy:jsx");
        row("Ctrl+Return", Qt::Key_Return, ctrl, "menu");
        row("Left", Qt::Key_Left, none, "move:-1");
        row("Down", Qt::Key_Down, none, "move:8");
        row("Shift+Left", Qt::Key_Left, shift, "");
        row("Ctrl+Right", Qt::Key_Right, ctrl, "");
        row("Page Down", Qt::Key_PageDown, none, "move:13");
        row("Alt+Page Up", Qt::Key_PageUp, alt, "move:-10");
        row("Ctrl+Shift+D", Qt::Key_D, ctrl | shift, "");
        row("Ctrl+1", Qt::Key_1, ctrl, "copy:png1");
        row("Ctrl+2, 2x switched off", Qt::Key_2, ctrl, "copy:png2");
        row("Ctrl+4", Qt::Key_4, ctrl, "");
        row("Alt+1", Qt::Key_1, alt, "copy:svg");
        row("Alt+6", Qt::Key_6, alt, "copy:dataURI");
        row("Alt+7", Qt::Key_7, alt, "");
        row("Ctrl+Alt+1", Qt::Key_1, ctrl | alt, "");
        row("Ctrl+,", Qt::Key_Comma, ctrl, "hidden settings:0");
        row("Ctrl+F", Qt::Key_F, ctrl, "focus");
        row("Ctrl+W", Qt::Key_W, ctrl, "hidden");
        row("Ctrl+Q", Qt::Key_Q, ctrl, "quit");
        row("Ctrl+Shift+O", Qt::Key_O, ctrl | shift, "style");
        row("Ctrl+O", Qt::Key_O, ctrl, "");
        row("Ctrl+Shift+A, results here", Qt::Key_A, ctrl | shift, "beep");
        row("a is typing", Qt::Key_A, none, "");
    }

    void keyTable()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, effect);

        f->prefs.setPng2x(false);
        f->prefs.setPng3x(false);
        controller->show();
        f->model->setSelectedID(f->model->resultNames().at(10));
        bool consumed = false;
        QCOMPARE(effectOf(press(key, modifiers), consumed), effect);
        QCOMPARE(consumed, !effect.isEmpty());
        if (FormatMenu* menu = controller->formatMenu())
            menu->hide();
    }

    // With no results shown, the selection kept for their return is not an
    // icon the keys may act on.
    void nothingShownBeeps()
    {
        f->prefs.setAfterCopy(AfterCopy::close);
        controller->show();
        f->model->setSelectedID(f->model->resultNames().at(3));
        f->model->setQuery(u"zzzz"_qs);
        bool consumed = false;
        for (const auto& [key, modifiers] : {std::pair{Qt::Key_Return, Qt::NoModifier},
                                             {Qt::Key_Return, Qt::ControlModifier},
                                             {Qt::Key_2, Qt::ControlModifier},
                                             {Qt::Key_D, Qt::ControlModifier},
                                             {Qt::Key_1, Qt::AltModifier}})
            QCOMPARE(effectOf(press(key, modifiers), consumed), u"beep"_qs);
        QVERIFY(!f->user->lastCopy());
    }

    void escapeClearsThenCloses_data()
    {
        QTest::addColumn<int>("afterMs"); // before "b" is typed and Escape pressed again
        QTest::addColumn<bool>("visible");
        QTest::addColumn<QString>("query");
        // Escape on the empty search closes: tray_e2e.
        QTest::newRow("typed again, within 0.6 s") << 300 << false << "b";
        QTest::newRow("typed again, after 0.6 s") << 700 << true << "";
    }

    void escapeClearsThenCloses()
    {
        QFETCH(int, afterMs);

        controller->show();
        f->model->setQuery(u"arr"_qs);
        QVERIFY(controller->handle(press(Qt::Key_Escape)));
        QCOMPARE(f->model->query(), QString());
        QVERIFY(controller->isVisible());

        now += std::chrono::milliseconds(afterMs);
        f->model->setQuery(u"b"_qs);
        QVERIFY(controller->handle(press(Qt::Key_Escape)));
        QTEST(controller->isVisible(), "visible");
        QTEST(f->model->query(), "query");
    }

    void afterCopy_data()
    {
        QTest::addColumn<AfterCopy>("setting");
        QTest::addColumn<bool>("visible");
        QTest::addColumn<int>("pastes");

        QTest::newRow("close") << AfterCopy::close << false << 0;
        QTest::newRow("keep open") << AfterCopy::keepOpen << true << 0;
        QTest::newRow("close and paste") << AfterCopy::closeAndPaste << false << 1;
    }

    void afterCopy()
    {
        QFETCH(AfterCopy, setting);
        QFETCH(bool, visible);
        QFETCH(int, pastes);

        f->prefs.setAfterCopy(setting);
        f->copy->setPasteScheduler([](const std::function<void()>& paste) { paste(); });
        controller->show();
        QVERIFY(controller->handle(press(Qt::Key_Return)));
        QCOMPARE(controller->isVisible(), visible);
        QCOMPARE(f->targets.pastes, pastes);
        if (visible) // keep open: the keys keep working
            QVERIFY(controller->handle(press(Qt::Key_Right)));
    }

    void keysReachTheFieldUnlessThePanelTakesThem()
    {
        controller->show();
        QQuickWindow* panel = controller->panel();
        QTRY_VERIFY(panel->isActive());
        QTest::keyClick(panel, Qt::Key_A);
        QCOMPARE(f->model->query(), u"a"_qs);
        const int index = f->model->selectedIndex();
        QTest::keyClick(panel, Qt::Key_Right);
        QCOMPARE(f->model->query(), u"a"_qs);
        QCOMPARE(f->model->selectedIndex(), index + 1);

        controller->hide(); // and the monitor goes with it
        QKeyEvent right = press(Qt::Key_Right);
        QCoreApplication::sendEvent(panel, &right);
        QCOMPARE(f->model->selectedIndex(), index + 1);
    }

    void losingTheKeyboardHidesExceptForTheMenu()
    {
        QWindow other;
        QVERIFY(showPanelBeside(other));
        QQuickWindow* panel = controller->panel();
        now += PickerController::keyboardGrace;
        other.requestActivate();
        QTRY_VERIFY(!controller->isVisible());

        controller->toggle(); // the same click that took the keyboard away
        QVERIFY(!controller->isVisible());
        now += 1s;
        controller->toggle();
        QVERIFY(controller->isVisible());
        QTRY_VERIFY(panel->isActive());

        controller->showFormatMenu();
        QVERIFY(controller->showingMenu());
        other.requestActivate();
        QTRY_VERIFY(other.isActive());
        QVERIFY(controller->isVisible());
        controller->formatMenu()->hide();
        QTRY_VERIFY(!controller->showingMenu());
        QVERIFY(controller->isVisible());
        QTRY_VERIFY(panel->isActive()); // the panel takes the keyboard back
    }

    // Soon after showing, a loss of the keyboard made up for at once (the
    // previous showing's, reported late) leaves the panel open; one that
    // lasts closes it.
    void earlyLossOfTheKeyboardIsConfirmed()
    {
        QWindow other;
        QVERIFY(showPanelBeside(other));
        QQuickWindow* panel = controller->panel();
        other.requestActivate();
        QTRY_VERIFY(controller->confirmingKeyboardLoss());
        panel->requestActivate();
        QTRY_VERIFY(!controller->confirmingKeyboardLoss());
        QVERIFY(controller->isVisible());

        other.requestActivate();
        QTRY_VERIFY(!controller->isVisible());
    }

    void formatMenu_data()
    {
        QTest::addColumn<bool>("png1");
        QTest::addColumn<bool>("png2");
        QTest::addColumn<bool>("png3");
        QTest::addColumn<QStringList>("items");

        const QStringList code{u"#Code"_qs, u"svg"_qs,      u"jsx"_qs,    u"vue"_qs,
                               u"blade"_qs, u"tailwind"_qs, u"dataURI"_qs};
        const QStringList end{u"-"_qs, u"Customize Formats…"_qs};
        QTest::newRow("every size")
            << true << true << true
            << code + QStringList{u"-"_qs, u"#Image"_qs, u"png1"_qs, u"png2"_qs, u"png3"_qs} + end;
        QTest::newRow("no sizes") << false << false << false << code + end;
    }

    void formatMenu()
    {
        QFETCH(bool, png1);
        QFETCH(bool, png2);
        QFETCH(bool, png3);

        f->prefs.setPng1x(png1);
        f->prefs.setPng2x(png2);
        f->prefs.setPng3x(png3);
        f->model->setFormat(ExportFormat::vue);
        controller->show();
        controller->showFormatMenu();
        FormatMenu* menu = controller->formatMenu();
        QVERIFY(menu && menu->isVisible());
        QCOMPARE(menu->title(), u"Copy as"_qs);

        QStringList seen, checked;
        for (QAction* action : menu->actions()) {
            const auto format = fromRawValue<ExportFormat>(action->data().toString());
            if (action->isSeparator())
                seen << (action->text().isEmpty() ? u"-"_qs : u"#"_qs + action->text());
            else if (format)
                seen << rawValue(*format);
            else
                seen << action->text();
            if (action->isChecked())
                checked << seen.last();
            if (format) {
                QCOMPARE(action->text(), Formats::label(*format, f->prefs.reactLanguage()));
                QVERIFY(!action->icon().isNull());
            }
        }
        QTEST(seen, "items");
        QCOMPARE(checked, QStringList{u"vue"_qs});
        QCOMPARE(menu->actions().at(3)->shortcut(), QKeySequence(Qt::ALT | Qt::Key_3));

        menu->actions().at(1)->trigger(); // SVG
        QCOMPARE(f->user->lastCopy()->format, ExportFormat::svg);
        QSignalSpy settings(controller.get(), &PickerController::settingsRequested);
        menu->actions().last()->trigger();
        QCOMPARE(settings.value(0).value(0).toInt(), 1);
        QVERIFY(!controller->isVisible());
    }

    // The menu hangs under the copy button, over it where the screen ends,
    // and keeps to the screen's sides.
    void menuStaysOnThePanelsScreen_data()
    {
        QTest::addColumn<QRect>("button");
        QTest::addColumn<QPoint>("position");
        QTest::newRow("room below") << QRect(100, 300, 240, 36) << QPoint(100, 340);
        QTest::newRow("screen ends below") << QRect(100, 650, 240, 36) << QPoint(100, 346);
        QTest::newRow("right edge") << QRect(1200, 300, 60, 36) << QPoint(1000, 340);
        QTest::newRow("second screen") << QRect(1300, 300, 240, 36) << QPoint(1300, 340);
    }
    void menuStaysOnThePanelsScreen()
    {
        QFETCH(QRect, button);
        const QRect screen =
            button.left() >= 1280 ? QRect(1280, 0, 1920, 1080) : QRect(0, 0, 1280, 720);
        QTEST(FormatMenu::popupPosition(button, QSize(280, 300), screen), "position");
    }

    // A tab that finds nothing hands its query to the all tab in one key.
    void searchAllMovesAnEmptyTabsQuery()
    {
        controller->show(PickerTab::favorites());
        f->model->setQuery(u"brand"_qs);
        QVERIFY(f->model->results().isEmpty() && f->model->canSearchAllIcons());
        bool consumed = false;
        QCOMPARE(effectOf(QKeyEvent(QEvent::KeyPress, Qt::Key_A,
                                    Qt::ControlModifier | Qt::ShiftModifier),
                          consumed),
                 u"move:1 focus"_qs); // the first result selected
        QCOMPARE(f->model->tab(), PickerTab::all());
        QCOMPARE(f->model->query(), u"brand"_qs);
        QVERIFY(!f->model->results().isEmpty());
        f->model->setQuery(u"zzzz"_qs); // nothing anywhere: nowhere to go
        QVERIFY(!f->model->searchAllIcons());
    }

    void menuIconsShowOnADarkMenu()
    {
        // Black template masks would vanish on a dark menu: they take its text colour.
        const QPalette original = QApplication::palette();
        QPalette dark = original;
        dark.setColor(QPalette::Window, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        QApplication::setPalette(dark);
        const FormatMenu menu(f->prefs, *f->library, ExportFormat::svg, Rendition::pc);
        QApplication::setPalette(original);
        const QImage image = menu.actions().at(1)->icon().pixmap(15).toImage();
        int light = 0, darker = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (const QColor pixel = image.pixelColor(x, y); pixel.alpha() > 200)
                    ++(pixel.lightness() > 200 ? light : darker);
        QVERIFY(light > 0 && darker == 0);
    }
};

QTEST_MAIN(TestPickerController)
#include "tst_pickercontroller.moc"
