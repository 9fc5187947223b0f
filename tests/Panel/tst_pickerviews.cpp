#include "Panel/FormatMenu.h"
#include "Panel/PanelPlacement.h"
#include "Panel/PickerController.h"
#include "Panel/PopoverState.h"
#include "Panel/Views/PickerBindings.h"
#include "Panel/Views/PictrayQml.h"
#include "PickerFixture.h"
#include "QuickItems.h"

#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>

class TestPickerViews : public QObject {
    Q_OBJECT

    std::unique_ptr<PickerFixture> f;
    PopoverState popover;
    std::unique_ptr<PickerController> controller;
    std::unique_ptr<QQmlEngine> engine;
    std::unique_ptr<QQuickWindow> window;
    QQuickItem* root = nullptr;

    QQuickItem* item(const QString& name)
    {
        QQuickItem* found = findItem(root, name);
        if (!found)
            qWarning("no item named %s", qPrintable(name));
        return found;
    }
    QString text(const QString& name)
    {
        QQuickItem* found = item(name);
        return found ? found->property("text").toString() : u"<missing>"_qs;
    }
    bool shown(const QString& name)
    {
        QQuickItem* found = item(name);
        return found && found->isVisible();
    }
    void settle()
    {
        QCoreApplication::processEvents();
        window->grabWindow();
        QCoreApplication::processEvents();
    }
    // The text of the tooltip on screen, if one is.
    QQuickItem* visibleToolTip() const
    {
        const QList<QQuickItem*> items = window->contentItem()->childItems();
        const auto tip = std::find_if(items.cbegin(), items.cend(), [](const QQuickItem* item) {
            return item->objectName() == u"hoverTip" && item->isVisible();
        });
        return tip == items.cend() ? nullptr : findChild(*tip, "QQuickText");
    }
    static QQuickItem* findChild(const QQuickItem* parent, const char* className)
    {
        const QList<QQuickItem*> children = parent->childItems();
        const auto found =
            std::find_if(children.cbegin(), children.cend(),
                         [&](const QQuickItem* c) { return c->inherits(className); });
        return found == children.cend() ? nullptr : *found;
    }
    PickerTab categoryWithoutFilled() const
    {
        for (const QString& category : f->library->categories()) {
            const bool anyFilled = std::any_of(
                f->library->icons().cbegin(), f->library->icons().cend(), [&](const Icon& i) {
                    return i.category() == category && i.has(IconStyle::filled);
                });
            if (!anyFilled)
                return PickerTab::ofCategory(category);
        }
        return PickerTab::all();
    }

private slots:
    void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void init()
    {
        root = nullptr;
        window.reset();
        engine.reset();
        controller.reset();
        f = std::make_unique<PickerFixture>();
        popover.setArrowX(-1);
        controller =
            std::make_unique<PickerController>(*f->model, f->prefs, *f->user, *f->copy, f->targets);
        controller->setEngineSetup([this](QQmlEngine& e) { registerPictrayQml(e, *f->library); });
        controller->setBeep([] {});

        engine = std::make_unique<QQmlEngine>();
        registerPictrayQml(*engine, *f->library);
        QQmlComponent component(engine.get(), QUrl(u"qrc:/Pictray/Picker/PopoverRoot.qml"_qs));
        QVERIFY2(component.isReady(), qPrintable(component.errorString()));
        QObject* created = component.createWithInitialProperties(
            {{u"model"_qs, QVariant::fromValue<QObject*>(f->model.get())},
             {u"popover"_qs, QVariant::fromValue<QObject*>(&popover)},
             {u"controller"_qs, QVariant::fromValue<QObject*>(controller.get())},
             {u"appearance"_qs, QVariant::fromValue<QObject*>(&controller->appearance())}});
        QVERIFY2(created, qPrintable(component.errorString()));
        root = qobject_cast<QQuickItem*>(created);
        window = std::make_unique<QQuickWindow>();
        window->resize(780, 741);
        root->setParentItem(window->contentItem());
        QQmlEngine::setObjectOwnership(root, QQmlEngine::CppOwnership);
        connect(window.get(), &QObject::destroyed, root, &QObject::deleteLater);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        settle();
    }

    void cleanup()
    {
        delete root;
        root = nullptr;
    }

    // The controller's own panel, with the views on it alone.
    QQuickWindow* showPanel()
    {
        cleanup();
        controller->show();
        return controller->panel();
    }

    void emptyGridTexts_data()
    {
        QTest::addColumn<int>("tab"); // 0 favorites, 1 recents, 2 a category without filled icons
        QTest::addColumn<bool>("filled");
        QTest::addColumn<QString>("expected");
        const QString keys = PickerBindings::favoriteKeys(QKeySequence::NativeText);
        QTest::newRow("favorites")
            << 0 << false << u"No favorites yet. Press "_qs + keys + u" on any icon to add it."_qs;
        QTest::newRow("recents filled") << 1 << true << u"Icons you copy show up here."_qs;
        QTest::newRow("category filled") << 2 << true << u"No filled icons in this collection."_qs;
    }
    void emptyGridTexts()
    {
        QFETCH(int, tab);
        QFETCH(bool, filled);
        const PickerTab tabs[]{PickerTab::favorites(), PickerTab::recents(),
                               categoryWithoutFilled()};
        if (tab == 2 && tabs[2] == PickerTab::all())
            QSKIP("every category of this catalogue has filled icons");
        f->model->setTab(tabs[tab]);
        f->model->setStyle(filled ? IconStyle::filled : IconStyle::outline);
        settle();
        QCOMPARE(f->model->resultCount(), 0);
        QVERIFY(shown(u"emptyGridText"_qs));
        QTEST(text(u"emptyGridText"_qs), "expected");
        QVERIFY(!shown(u"emptyResultsTitle"_qs));
    }

    void emptyResults_data()
    {
        QTest::addColumn<int>("tab"); // 0 all, 1 recents, 2 the first category
        QTest::addColumn<bool>("filled");
        QTest::addColumn<QString>("hintTail");
        QTest::newRow("all outline") << 0 << false << QString();
        QTest::newRow("all filled") << 0 << true << u" Filled has fewer icons than Outline."_qs;
        QTest::newRow("recents filled")
            << 1 << true
            << u" You\u2019re searching in Recents only. Filled has fewer icons than Outline."_qs;
        QTest::newRow("category outline") << 2 << false << QString();
    }
    void emptyResults()
    {
        QFETCH(int, tab);
        QFETCH(bool, filled);
        QFETCH(QString, hintTail);
        const QString category = f->library->categories().constFirst();
        const PickerTab tabs[]{PickerTab::all(), PickerTab::recents(),
                               PickerTab::ofCategory(category)};
        if (tab == 2)
            hintTail = u" You\u2019re searching in "_qs + category + u" only."_qs;
        f->model->setTab(tabs[tab]);
        f->model->setStyle(filled ? IconStyle::filled : IconStyle::outline);
        f->model->setQuery(u"zzzz"_qs);
        settle();
        QVERIFY(shown(u"emptyResultsTitle"_qs));
        QVERIFY(!shown(u"iconGrid"_qs));
        QCOMPARE(text(u"emptyResultsTitle"_qs), u"No icons for \u201Czzzz\u201D"_qs);
        QCOMPARE(text(u"emptyResultsHint"_qs),
                 u"Search matches names and tags. Try a shorter word or a synonym."_qs + hintTail);
        QCOMPARE(text(u"requestIconLink"_qs), u"Request an icon on GitHub"_qs);
    }

    void typosOfferWhatWasMeantFirst()
    {
        f->model->setQuery(u"arow"_qs);
        settle();
        QVERIFY(shown(u"didYouMeanLine"_qs));
        const QString meant = f->library->typoMatches(u"arow", 5).constFirst().id();
        QVERIFY(shown(u"nearMatch_"_qs + meant));
        // "zzz" and "zzz-off" are both what was meant and what the tag finds:
        // shown once, without a tag line over an empty row.
        f->model->setQuery(u"zzzz"_qs);
        settle();
        QVERIFY(shown(u"nearMatch_zzz"_qs));
        QVERIFY(!shown(u"nearMatchLine"_qs));
    }

    void nearMatchesAreQuotedAndDrawn()
    {
        f->model->setQuery(u"arrowz"_qs);
        settle();
        QVERIFY(shown(u"emptyResultsTitle"_qs));
        const QStringList words = f->library->nearMatches(u"arrowz", 5).words;
        QVERIFY(!words.isEmpty());
        QVERIFY(text(u"nearMatchLine"_qs)
                    .startsWith(u"Close by tag: \u201C"_qs + words.first() + u"\u201D"_qs));
        const QString first = f->library->nearMatches(u"arrowz", 5).icons.constFirst().id();
        QVERIFY(shown(u"nearMatch_"_qs + first));
    }

    void footerInBothStates()
    {
        const auto hints = [this] {
            QStringList seen;
            for (int i = 0; findItem(root, u"footerLabel"_qs + QString::number(i)); ++i)
                seen << text(u"footerKey%1Text"_qs.arg(i)) + u' ' +
                            text(u"footerLabel"_qs + QString::number(i));
            return seen << text(u"footerTrailing"_qs);
        };
        QCOMPARE(hints(), (QStringList{u"\u21B5 Copy"_qs, u"Ctrl+\u21B5 Copy as\u2026"_qs,
                                       u"Alt+1\u20266 Format"_qs, u"Ctrl+D Favorite"_qs,
                                       u"Drag any icon into Figma, Inkscape or Slack"_qs}));
        f->model->setQuery(u"arrow"_qs);
        settle();
        QCOMPARE(hints(), (QStringList{u"esc Clear"_qs, u"esc esc Close panel"_qs,
                                       IconLibrary::number(f->library->iconCount()) +
                                           u" icons \u00B7 works offline"_qs}));
    }

    void copyButtonTitleAndClick()
    {
        f->model->setFormat(ExportFormat::svg);
        settle();
        QCOMPARE(text(u"copyButtonText"_qs), u"Copy Raw SVG"_qs);
        f->prefs.setReactLanguage(ReactLanguage::jsx);
        f->model->setFormat(ExportFormat::jsx);
        QTRY_COMPARE(text(u"copyButtonText"_qs), u"Copy React / JSX"_qs);

        QQuickItem* button = item(u"copyButton"_qs);
        QTest::mouseClick(window.get(), Qt::LeftButton, {},
                          button->mapToScene(QPointF(button->width() / 2, 10)).toPoint());
        QCOMPARE(f->targets.messages, 1);
    }

    // Ctrl+Return opens the "Copy as" menu 4 points under the copy button,
    // on whichever side of the panel the arrow is.
    void formatMenuOpensUnderTheCopyButton_data()
    {
        QTest::addColumn<bool>("arrowDown");
        QTest::newRow("arrow on top") << false;
        QTest::newRow("arrow at the bottom") << true;
    }
    void formatMenuOpensUnderTheCopyButton()
    {
        QFETCH(bool, arrowDown);
        f->prefs.setPickerPosition(PickerPosition::underMenuBarIcon);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY2(screen.height() > 1200, "the menu must fit under the panel");
        // A tray icon low on the screen, not at its bottom, leaves room for the menu.
        const int trayY = arrowDown ? screen.top() + screen.height() * 3 / 4 : screen.top();
        const QRect tray(screen.center().x(), trayY, 24, 24);
        controller->setTrayIconGeometry([tray] { return tray; });
        QQuickWindow* panel = showPanel();
        QVERIFY(QTest::qWaitForWindowExposed(panel));
        QCOMPARE(controller->popoverState().arrowDown(), arrowDown);
        QQuickItem* button = findItem(panel->contentItem(), u"copyButton"_qs);
        QVERIFY(button);
        const QPointF under = button->mapToScene(QPointF(0, button->height() + 4));

        QVERIFY(
            controller->handle(QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier)));
        QTRY_VERIFY(controller->formatMenu() && controller->formatMenu()->isVisible());
        QCOMPARE(controller->formatMenu()->pos(), panel->mapToGlobal(under.toPoint()));
        controller->formatMenu()->hide();
    }

    // The inspector's list and the Ctrl+Return menu offer the same formats
    // with the same keys, the PNG sizes included only where switched on.
    void bothCopyAsListsOfferTheSame()
    {
        f->prefs.setPng1x(true);
        f->prefs.setPng2x(false);
        f->prefs.setPng3x(true);
        QQuickWindow* panel = showPanel();
        f->model->setQuery(u"arrow"_qs);
        controller->showFormatMenu();
        QTRY_VERIFY(controller->formatMenu());
        QStringList menu;
        for (const QAction* action : controller->formatMenu()->actions()) {
            if (!action->data().isNull())
                menu << action->text() + u' ' +
                            action->shortcut().toString(QKeySequence::NativeText);
        }
        controller->formatMenu()->close();
        QStringList list;
        // The list's items live in the popup, made when it opens.
        QObject* popup = findItem(panel->contentItem(), u"formatChoice"_qs)
                             ->findChild<QObject*>(u"formatPopup"_qs);
        QMetaObject::invokeMethod(popup, "open");
        QTRY_VERIFY(popup->property("opened").toBool());
        const auto textOf = [&](const QString& name) {
            QQuickItem* found = findItem(panel->contentItem(), name);
            return found ? found->property("text").toString() : QString();
        };
        for (const QString& group : {u"formatGroupCode"_qs, u"formatGroupImage"_qs}) {
            for (int i = 0; !textOf(group + u"Item"_qs + QString::number(i)).isEmpty(); ++i)
                list << textOf(group + u"Item"_qs + QString::number(i)) + u' ' +
                            textOf(group + u"Keys"_qs + QString::number(i));
        }
        QCOMPARE(list, menu);
        QCOMPARE(menu.size(), 8);
        QVERIFY(menu.contains(u"PNG @3x Ctrl+3"_qs));
    }

    // While the inspector's "Copy as" list is open it has the keys: Escape
    // closes only the list, the arrows move in it and Return picks from it.
    void openFormatListTakesTheKeys()
    {
        f->prefs.setPickerPosition(PickerPosition::centered);
        f->model->setFormat(ExportFormat::svg);
        QQuickWindow* panel = showPanel();
        QTRY_VERIFY(panel->isActive());
        f->model->setQuery(u"arrow"_qs);
        QQuickItem* choice = findItem(panel->contentItem(), u"formatChoice"_qs);
        QVERIFY(choice);
        auto* popup = choice->findChild<QObject*>(u"formatPopup"_qs);
        QVERIFY(popup);
        const auto openList = [&] {
            QTest::mouseClick(panel, Qt::LeftButton, {},
                              choice->mapToScene(QPointF(choice->width() / 2, 10)).toPoint());
            return QTest::qWaitFor([&] { return popup->property("opened").toBool(); });
        };

        QVERIFY(openList());
        QTest::keyClick(panel, Qt::Key_Escape);
        QTRY_VERIFY(!popup->property("visible").toBool());
        QCOMPARE(f->model->query(), u"arrow"_qs);
        QVERIFY(controller->isVisible());

        QVERIFY(openList());
        const int selected = f->model->selectedIndex();
        QTest::keyClick(panel, Qt::Key_Down);
        QTest::keyClick(panel, Qt::Key_Return);
        QTRY_VERIFY(!popup->property("visible").toBool());
        QCOMPARE(f->model->selectedIndex(), selected);
        QCOMPARE(f->model->format(), ExportFormat::jsx);
        QCOMPARE(f->targets.messages, 0);
        QVERIFY(controller->isVisible());
        // The keys are the panel's again, typing the search's.
        QTest::keyClick(panel, Qt::Key_S);
        QCOMPARE(f->model->query(), u"arrows"_qs);
    }

    void chipsFollowTheTabs()
    {
        QQuickItem* list = item(u"chipsList"_qs);
        QVERIFY(list && list->isVisible());
        QCOMPARE(list->property("count").toInt(), f->model->tabs().size());
        QCOMPARE(text(u"chipText2"_qs), u"Recents"_qs);
        QCOMPARE(text(u"chipText3"_qs), f->library->categories().constFirst());

        QQuickItem* chip = item(u"chip2"_qs);
        const qreal width = chip->width();
        QTest::mouseClick(
            window.get(), Qt::LeftButton, {},
            chip->mapToScene(QPointF(chip->width() / 2, chip->height() / 2)).toPoint());
        QCOMPARE(f->model->tab(), PickerTab::recents());
        QCOMPARE(chip->width(), width); // bold takes no more room

        // Paging moves by 0.7 of the visible width and updates both arrows.
        QObject* wheel = item(u"chipsWheel"_qs);
        QCOMPARE(wheel->property("canLeft").toBool(), false);
        QCOMPARE(wheel->property("canRight").toBool(), true);
        QMetaObject::invokeMethod(wheel, "page", Q_ARG(int, 1));
        QVERIFY(qAbs(list->property("contentX").toDouble() - 0.7 * list->width()) < 1);
        QCOMPARE(wheel->property("canLeft").toBool(), true);

        f->prefs.setShowCategoryBar(false);
        settle();
        QVERIFY(!list->isVisible());
    }

    void cellsSelectAndCopyOnce()
    {
        f->model->setQuery(u"arrow"_qs);
        settle();
        const QString second = f->model->resultNames().at(1);
        QQuickItem* cell = item(u"cell_"_qs + second);
        QVERIFY(cell);
        const QPoint at = cell->mapToScene(QPointF(cell->width() / 2, 29)).toPoint();
        QTest::mouseDClick(window.get(), Qt::LeftButton, {}, at);
        QCOMPARE(f->model->selectedID(), second);
        QCOMPARE(f->targets.messages, 1);
    }

    // The name under the pointer, whole, in a tooltip the size of its text.
    void hoveredCellShowsItsName()
    {
        f->model->setQuery(u"device ipad horizontal"_qs);
        settle();
        const QString name = f->model->resultNames().constLast();
        QQuickItem* cell = item(u"cell_"_qs + name);
        QVERIFY(cell);
        QTest::mouseMove(window.get(), cell->mapToScene(QPointF(10, 10)).toPoint());
        QQuickItem* tip = nullptr;
        QTRY_VERIFY((tip = visibleToolTip()));
        QVERIFY2(tip->property("text").toString().startsWith(name + u'\n'),
                 qPrintable(tip->property("text").toString()));
        QVERIFY(tip->width() > 100);
    }

    // Tab walks every control and wraps, Shift+Tab walks back; on a control
    // the arrows are its own; typing a letter goes to the search.
    void keyboardReachesEveryControl()
    {
        QQuickWindow* panel = showPanel();
        QTRY_VERIFY(panel->isActive());
        const auto focused = [&] {
            const QQuickItem* item = panel->activeFocusItem();
            return item ? item->objectName() : QString();
        };
        QStringList order;
        for (int i = 0; i < 11; ++i) {
            QTest::keyClick(panel, Qt::Key_Tab);
            order << focused();
        }
        QCOMPARE(order, (QStringList{"styleControl", "settingsButton", "chip0", "favoriteToggle",
                                     "swatches", "hexField", "sizeSlider", "strokeSlider",
                                     "formatChoice", "copyButton", "searchField"}));
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(panel, Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(focused(), u"sizeSlider"_qs);

        const int selected = f->model->selectedIndex(), size = f->model->size();
        QTest::keyClick(panel, Qt::Key_Right);
        QCOMPARE(f->model->size(), size + 1);
        QCOMPARE(f->model->selectedIndex(), selected);
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(panel, Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(focused(), u"favoriteToggle"_qs);
        QTest::keyClick(panel, Qt::Key_Space);
        QVERIFY(f->user->isFavorite(f->model->currentName()));

        QTest::keyClick(panel, Qt::Key_H);
        QCOMPARE(focused(), u"searchField"_qs);
        QCOMPARE(f->model->query(), u"h"_qs);
        // Typed before any item has the focus (a loaded machine, right
        // after the shortcut): still the search's.
        panel->contentItem()->forceActiveFocus();
        QTest::keyClick(panel, Qt::Key_I);
        QCOMPARE(f->model->query(), u"hi"_qs);
    }

    // The hex field keeps its keys: Return takes a colour that reads, and
    // one that does not beeps and shows the current colour again.
    void hexFieldTakesTypedColours()
    {
        int beeps = 0;
        controller->setBeep([&] { ++beeps; });
        QQuickWindow* panel = showPanel();
        QTRY_VERIFY(panel->isActive());
        QQuickItem* field = findItem(panel->contentItem(), u"hexField"_qs);
        field->forceActiveFocus();
        for (const char key : {'0', 'a', 'f'})
            QTest::keyClick(panel, key);
        QTest::keyClick(panel, Qt::Key_Return);
        QCOMPARE(f->model->color(), u"#00AAFF"_qs);
        QCOMPARE(f->targets.messages, 0);
        QCOMPARE(f->model->query(), QString());
        QTest::keyClick(panel, 'z');
        QTest::keyClick(panel, 'z');
        QTest::keyClick(panel, Qt::Key_Return);
        QCOMPARE(beeps, 1);
        QCOMPARE(f->model->color(), u"#00AAFF"_qs);
        QCOMPARE(field->property("text").toString(), u"#00AAFF"_qs);
        QTest::keyClick(panel, Qt::Key_Escape);
        QCOMPARE(panel->activeFocusItem()->objectName(), u"searchField"_qs);
        QVERIFY(controller->isVisible());

        QQuickItem* preset = findItem(panel->contentItem(), u"sizePreset32"_qs);
        QTest::mouseClick(panel, Qt::LeftButton, {},
                          preset->mapToScene(QPointF(preset->width() / 2, 9)).toPoint());
        QCOMPARE(f->model->size(), 32);
    }

    // A colour lost on the body (white on light) leaves the grid in the text
    // colour, and the preview shows it on a checkerboard.
    void gridStaysLegible_data()
    {
        QTest::addColumn<QString>("color");
        QTest::addColumn<QString>("glyph");
        QTest::addRow("white") << u"#FFFFFF"_qs << u"currentColor"_qs;
        QTest::addRow("yellow") << u"#EAB308"_qs << u"#EAB308"_qs;
    }
    void gridStaysLegible()
    {
        QFETCH(QString, color);
        QFETCH(QString, glyph);
        f->model->setColor(color);
        settle();
        QCOMPARE(item(u"cell_"_qs + f->model->resultNames().at(0))->property("glyphColor"), glyph);
        QCOMPARE(shown(u"previewCheckerboard"_qs), glyph != color);
    }

    // The model's Down is one row of the grid: the cell straight below.
    void downMovesToTheCellBelow()
    {
        f->model->setQuery(u"arrow"_qs);
        f->model->setSelectedID(f->model->resultNames().at(2));
        f->model->move(0, 1);
        settle();
        QQuickItem* above = item(u"cell_"_qs + f->model->resultNames().at(2));
        QQuickItem* below = item(u"cell_"_qs + f->model->selectedID());
        QVERIFY(above && below);
        QCOMPARE(below->x(), above->x());
        QCOMPARE(below->y(), above->y() + above->height() + 4);
    }

    // Opening on "heart", mid-catalogue, or stepping a row at a time: the
    // grid's top edge never cuts a row.
    void gridShowsWholeRows()
    {
        QQuickItem* grid = item(u"iconGrid"_qs);
        auto* cells = grid->property("contentItem").value<QQuickItem*>();
        QVERIFY(cells);
        const auto cutRows = [&] {
            settle();
            int cut = 0;
            for (QQuickItem* cell : cells->childItems()) {
                const QRectF at = cell->mapRectToItem(grid, cell->boundingRect());
                cut += cell->isVisible() && at.top() < 0 && at.bottom() > 0;
            }
            return cut;
        };
        f->model->prepareForShow();
        QVERIFY(f->model->selectedIndex() > 200);
        QCOMPARE(cutRows(), 0);
        for (const int rows : {1, 1, -12, 5}) {
            f->model->move(0, rows);
            QCOMPARE(cutRows(), 0);
        }
    }

    // The panel made ahead, unseen, holds the cells its first opening shows:
    // the selection's row, not the top rows that opening would scroll from.
    void preparedPanelHoldsTheSelectionsRow()
    {
        cleanup();
        controller->preparePanel();
        QQuickWindow* panel = controller->panel();
        QVERIFY(panel && !panel->isVisible());
        QVERIFY(f->model->selectedIndex() > 200);
        QQuickItem* grid = findItem(panel->contentItem(), u"iconGrid"_qs);
        QQuickItem* cell = findItem(panel->contentItem(), u"cell_"_qs + f->model->currentName());
        QVERIFY(grid);
        QVERIFY(cell && cell->isVisible());
        const QRectF inGrid = cell->mapRectToItem(grid, cell->boundingRect());
        QVERIFY(inGrid.top() >= 0 && inGrid.bottom() <= grid->height());
    }

    // The shortest body a short screen gets still holds the whole inspector
    // above the footer: only the grid and the preview give up height.
    void shortBodyKeepsEveryControl()
    {
        popover.setBodyHeight(PanelPlacement::minBodyHeight);
        settle();
        const auto sceneRect = [&](const QString& name) {
            QQuickItem* found = item(name);
            return found ? found->mapRectToScene(found->boundingRect()) : QRectF();
        };
        const QRectF body = sceneRect(u"popoverBody"_qs);
        QCOMPARE(body.height(), PanelPlacement::minBodyHeight);
        QVERIFY(sceneRect(u"copyButton"_qs).bottom() < sceneRect(u"footerTrailing"_qs).top());
        QVERIFY(sceneRect(u"footerTrailing"_qs).bottom() <= body.bottom());
        QVERIFY(sceneRect(u"outputPreview"_qs).height() >= 56);
        QVERIFY(sceneRect(u"previewRow"_qs).top() > sceneRect(u"inspectorTags"_qs).bottom());
    }

    void gridScrollsToTheSelectionAndDrawsItsGlyph()
    {
        f->model->setColor(u"#DC2626"_qs);
        f->model->move(0, 100000); // the last icon
        settle();
        const QString last = f->model->resultNames().constLast();
        QQuickItem* cell = item(u"cell_"_qs + last);
        QVERIFY(cell && cell->isVisible());
        const QRectF inGrid = cell->mapRectToItem(item(u"iconGrid"_qs), cell->boundingRect());
        QVERIFY(inGrid.top() >= 0 && inGrid.bottom() <= item(u"iconGrid"_qs)->height());

        const QImage shot = window->grabWindow();
        const QRect glyph =
            cell->mapRectToScene(cell->boundingRect()).toRect().adjusted(8, 8, -8, -8);
        int red = 0;
        for (int y = glyph.top(); y < glyph.bottom(); ++y) {
            for (int x = glyph.left(); x < glyph.right(); ++x)
                red += shot.pixelColor(x, y) == QColor(0xDC, 0x26, 0x26);
        }
        QVERIFY2(red > 10, "the selected cell shows no glyph in the model's colour");
    }
};

QTEST_MAIN(TestPickerViews)
#include "tst_pickerviews.moc"
