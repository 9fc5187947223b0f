#include "Export/IconCopier.h"
#include "Panel/PopoverState.h"
#include "Panel/Views/PickerBindings.h"
#include "Panel/Views/PictrayQml.h"
#include "Picker/PickerModel.h"
#include "QuickItems.h"
#include "State/SettingsStore.h"
#include "TestData.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>

namespace {

// What the views call on the panel controller.
class StandInController : public QObject {
    Q_OBJECT
public:
    QStringList calls;
    Q_INVOKABLE void openSettings() { calls.append(u"settings"_qs); }
    Q_INVOKABLE void startDrag(const QString& name) { calls.append(u"drag "_qs + name); }
};

struct CountingCopier : IconCopier {
    int copies = 0;
    bool copy(const IconExport&, ExportFormat) override { return ++copies > 0; }
};

} // namespace

class TestPickerViews : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    int files = 0;
    std::unique_ptr<SettingsStore> store;
    std::unique_ptr<Preferences> prefs;
    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<UserLibrary> user;
    CountingCopier copier;
    std::unique_ptr<PickerModel> model;
    PopoverState popover;
    StandInController controller;
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
    // Lets the bindings, layouts and Qt.callLater run.
    void settle()
    {
        QCoreApplication::processEvents();
        window->contentItem()->polish();
        QTest::qWait(20);
    }
    PickerTab categoryWithoutFilled() const
    {
        for (const QString& category : library->categories()) {
            const bool anyFilled =
                std::any_of(library->icons().cbegin(), library->icons().cend(), [&](const Icon& i) {
                    return i.category() == category && i.has(IconStyle::filled);
                });
            if (!anyFilled)
                return PickerTab::ofCategory(category);
        }
        return PickerTab::all();
    }

private slots:
    void initTestCase()
    {
        // Pixels read back the same on every machine.
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        library = std::make_unique<IconLibrary>(
            IconLibrary::Sources{TestData::shippedCatalogue(), dir.filePath(u"dl.json"_qs)});
        QVERIFY(library->iconCount() > 5000);
    }

    void init()
    {
        root = nullptr;
        window.reset();
        engine.reset();
        model.reset();
        user.reset();
        prefs.reset();
        store = std::make_unique<SettingsStore>(
            dir.filePath(QStringLiteral("settings-%1.conf").arg(++files)));
        prefs = std::make_unique<Preferences>(*store);
        user = std::make_unique<UserLibrary>(
            *store, *prefs, [this](const QString& name) { return !library->icon(name).isNull(); });
        model = std::make_unique<PickerModel>(*library, *user, *prefs, &copier);
        popover.setArrowX(-1);
        controller.calls.clear();
        copier.copies = 0;

        engine = std::make_unique<QQmlEngine>();
        registerPictrayQml(*engine, *library);
        QQmlComponent component(engine.get(), QUrl(u"qrc:/Pictray/Picker/PopoverRoot.qml"_qs));
        QVERIFY2(component.isReady(), qPrintable(component.errorString()));
        QObject* created = component.createWithInitialProperties(
            {{u"model"_qs, QVariant::fromValue<QObject*>(model.get())},
             {u"popover"_qs, QVariant::fromValue<QObject*>(&popover)},
             {u"controller"_qs, QVariant::fromValue<QObject*>(&controller)}});
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

    void emptyGridTexts_data()
    {
        QTest::addColumn<int>("tab"); // 0 favorites, 1 recents, 2 a category without filled icons
        QTest::addColumn<bool>("filled");
        QTest::addColumn<QString>("expected");
        const QString keys = PickerBindings::favoriteKeys(QKeySequence::NativeText);
        QTest::newRow("favorites")
            << 0 << false << u"No favorites yet. Press "_qs + keys + u" on any icon to add it."_qs;
        QTest::newRow("favorites filled")
            << 0 << true << u"No favorites yet. Press "_qs + keys + u" on any icon to add it."_qs;
        QTest::newRow("recents filled") << 1 << true << u"Icons you copy show up here."_qs;
        QTest::newRow("category filled") << 2 << true << u"No filled icons in this collection."_qs;
    }
    void emptyGridTexts()
    {
        QFETCH(int, tab);
        QFETCH(bool, filled);
        QFETCH(QString, expected);
        const PickerTab tabs[]{PickerTab::favorites(), PickerTab::recents(),
                               categoryWithoutFilled()};
        if (tab == 2 && tabs[2] == PickerTab::all())
            QSKIP("every category of this catalogue has filled icons");
        model->setTab(tabs[tab]);
        model->setStyle(filled ? IconStyle::filled : IconStyle::outline);
        settle();
        QCOMPARE(model->resultCount(), 0);
        QVERIFY(shown(u"emptyGridText"_qs));
        QCOMPARE(text(u"emptyGridText"_qs), expected);
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
        const QString category = library->categories().constFirst();
        const PickerTab tabs[]{PickerTab::all(), PickerTab::recents(),
                               PickerTab::ofCategory(category)};
        if (tab == 2)
            hintTail = u" You\u2019re searching in "_qs + category + u" only."_qs;
        model->setTab(tabs[tab]);
        model->setStyle(filled ? IconStyle::filled : IconStyle::outline);
        model->setQuery(u"zzzz"_qs);
        settle();
        QVERIFY(shown(u"emptyResultsTitle"_qs));
        QVERIFY(!shown(u"iconGrid"_qs));
        QCOMPARE(text(u"emptyResultsTitle"_qs), u"No icons for \u201Czzzz\u201D"_qs);
        QCOMPARE(text(u"emptyResultsHint"_qs),
                 u"Search matches names and tags. Try a shorter word or a synonym."_qs + hintTail);
        QCOMPARE(text(u"requestIconLink"_qs), u"Request an icon on GitHub"_qs);
    }

    void nearMatchesAreQuotedAndDrawn()
    {
        model->setQuery(u"arrowz"_qs);
        settle();
        QVERIFY(shown(u"emptyResultsTitle"_qs));
        const QStringList words = library->nearMatches(u"arrowz", 5).words;
        QVERIFY(!words.isEmpty());
        QVERIFY(text(u"nearMatchLine"_qs)
                    .startsWith(u"Close by tag: \u201C"_qs + words.first() + u"\u201D"_qs));
        const QString first = library->nearMatches(u"arrowz", 5).icons.constFirst().id();
        QVERIFY(shown(u"nearMatch_"_qs + first));
    }

    void footerInBothStates()
    {
        const auto hints = [this] {
            return QStringList{text(u"footerKey0Text"_qs), text(u"footerLabel0"_qs),
                               text(u"footerKey1Text"_qs), text(u"footerLabel1"_qs),
                               text(u"footerTrailing"_qs)};
        };
        QCOMPARE(hints(), (QStringList{u"\u21B5"_qs, u"Copy"_qs, u"Ctrl+D"_qs, u"Favorite"_qs,
                                       u"Drag any icon into Figma, Keynote or Slack"_qs}));
        model->setQuery(u"arrow"_qs);
        settle();
        QCOMPARE(hints(), (QStringList{u"esc"_qs, u"Clear"_qs, u"esc esc"_qs, u"Close panel"_qs,
                                       IconLibrary::number(library->iconCount()) +
                                           u" icons \u00B7 works offline"_qs}));
    }

    void copyButtonTitleAndFrame()
    {
        model->setFormat(ExportFormat::svg);
        settle();
        QCOMPARE(text(u"copyButtonText"_qs), u"Copy Raw SVG"_qs);
        prefs->setReactLanguage(ReactLanguage::jsx);
        model->setFormat(ExportFormat::jsx);
        QTRY_COMPARE(text(u"copyButtonText"_qs), u"Copy React / JSX"_qs);

        // The frame is in the body's coordinates: inside it, at the lower right.
        const QRectF frame = model->copyButtonFrame();
        QVERIFY2(QRectF(0, 0, 780, 730).contains(frame), qPrintable(u"%1,%2 %3x%4"_qs.arg(frame.x())
                                                                        .arg(frame.y())
                                                                        .arg(frame.width())
                                                                        .arg(frame.height())));
        QVERIFY(frame.left() > 780 - 300 && frame.top() > 600 && frame.height() > 20);
        popover.setArrowX(400);
        settle();
        QCOMPARE(model->copyButtonFrame(), frame); // the arrow moves the body, not the frame

        QTest::mouseClick(window.get(), Qt::LeftButton, {},
                          (frame.center() + QPointF(0, 11)).toPoint());
        QCOMPARE(copier.copies, 1);
    }

    void chipsFollowTheTabs()
    {
        QQuickItem* list = item(u"chipsList"_qs);
        QVERIFY(list && list->isVisible());
        QCOMPARE(list->property("count").toInt(), model->tabs().size());
        QCOMPARE(text(u"chipText0"_qs), u"All"_qs);
        QCOMPARE(text(u"chipText1"_qs), u"Favorites"_qs);
        QCOMPARE(text(u"chipText2"_qs), u"Recents"_qs);
        QCOMPARE(text(u"chipText3"_qs), library->categories().constFirst());

        QQuickItem* chip = item(u"chip2"_qs);
        QTest::mouseClick(
            window.get(), Qt::LeftButton, {},
            chip->mapToScene(QPointF(chip->width() / 2, chip->height() / 2)).toPoint());
        QCOMPARE(model->tab(), PickerTab::recents());

        // Paging moves by 0.7 of the visible width and updates both arrows.
        QObject* wheel = item(u"chipsWheel"_qs);
        QCOMPARE(wheel->property("canLeft").toBool(), false);
        QCOMPARE(wheel->property("canRight").toBool(), true);
        QMetaObject::invokeMethod(wheel, "page", Q_ARG(int, 1));
        QVERIFY(qAbs(list->property("contentX").toDouble() - 0.7 * list->width()) < 1);
        QCOMPARE(wheel->property("canLeft").toBool(), true);

        prefs->setShowCategoryBar(false);
        settle();
        QVERIFY(!list->isVisible());
    }

    void cellsSelectAndCopyOnce()
    {
        model->setQuery(u"arrow"_qs);
        settle();
        const QString second = model->resultNames().at(1);
        QQuickItem* cell = item(u"cell_"_qs + second);
        QVERIFY(cell);
        const QPoint at = cell->mapToScene(QPointF(cell->width() / 2, 29)).toPoint();
        QTest::mouseDClick(window.get(), Qt::LeftButton, {}, at);
        QCOMPARE(model->selectedID(), second);
        QCOMPARE(copier.copies, 1);
    }

    void gridScrollsToTheSelectionAndDrawsItsGlyph()
    {
        model->setColor(u"#DC2626"_qs);
        model->move(0, 100000); // the last icon
        settle();
        const QString last = model->resultNames().constLast();
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
