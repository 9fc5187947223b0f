#include "Picker/PickerResultsModel.h"
#include "PickerFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using PackageConverter::OutEntry;

namespace {

// Nineteen icons: grid rows of 8, 8 and 3. "name category [f = filled form] [tags...]".
const std::vector<OutEntry>& entries()
{
    static const std::vector<OutEntry> list = [] {
        const char* const table[]{
            "arrow-down Arrows",      "arrow-left Arrows f", "arrow-right Arrows",
            "arrow-up Arrows f",      "bell System f alarm", "bookmark System f",
            "calendar System",        "camera Media f",      "heart Health f love",
            "home Buildings f house", "mail System",         "map Map",
            "music Media f",          "phone System f",      "search System",
            "settings System gear",   "star Shapes f",       "trash System",
            "user System f"};
        std::vector<OutEntry> out;
        for (const char* row : table) {
            QStringList words = QString::fromLatin1(row).split(u' ');
            const QString name = words.takeFirst(), category = words.takeFirst();
            const bool filled = words.removeOne(u"f"_qs);
            const PathList d{"M4 4h16"};
            out.push_back({name, category, words, d, filled ? std::optional(d) : std::nullopt});
        }
        return out;
    }();
    return list;
}

} // namespace

class TestPickerModel : public QObject {
    Q_OBJECT

    std::unique_ptr<PickerFixture> f;

    void recordCopy(const QString& name)
    {
        UserLibrary::LastCopy copy;
        copy.name = name;
        f->user->recordCopy(copy);
    }

private slots:
    void init() { f = std::make_unique<PickerFixture>(entries()); }

    void constructionStartsOnHeartWithTheDefaults()
    {
        QCOMPARE(f->model->selectedID(), u"heart"_qs);
        QCOMPARE(f->model->tabs().at(3), PickerTab::ofCategory(u"Arrows"_qs));

        f->prefs.setDefaultStyle(IconStyle::filled);
        f->prefs.setDefaultColor(u"#ff0000"_qs);
        f->prefs.setDefaultSize(40);
        f->prefs.setDefaultStroke(1.25);
        f->prefs.setDefaultFormat(ExportFormat::vue);
        std::vector<OutEntry> noHeart = entries();
        std::erase_if(noHeart, [](const OutEntry& e) { return e.n == u"heart"_qs; });
        f->load(noHeart);
        QCOMPARE(f->model->selectedID(), u"arrow-left"_qs); // the first filled icon
        QCOMPARE(f->model->currentExport(),
                 std::optional(IconExport{f->library->icon(u"arrow-left"), IconStyle::filled, 40,
                                          1.25, u"#ff0000"_qs}));
        QCOMPARE(f->model->format(), ExportFormat::vue);

        f->load({});
        QVERIFY(f->model->selectedID().isEmpty());
        QSignalSpy nothing(f->model.get(), &PickerModel::nothingToCopy);
        QVERIFY(!f->model->copy());
        QCOMPARE(nothing.size(), 1);
        QVERIFY(f->targets.messages == 0);
    }

    void tabLists_data()
    {
        QTest::addColumn<PickerTab>("tab");
        QTest::addColumn<IconStyle>("style");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QStringList>("expected");
        const auto outline = IconStyle::outline, filled = IconStyle::filled;
        const PickerTab all, favorites = PickerTab::favorites(), recents = PickerTab::recents();
        const PickerTab media = PickerTab::ofCategory(u"Media"_qs);
        // clang-format off
        QTest::newRow("all filled") << all << filled << "" << QStringList{"arrow-left", "arrow-up",
            "bell", "bookmark", "camera", "heart", "home", "music", "phone", "star", "user"};
        QTest::newRow("all, query") << all << outline << "gear" << QStringList{"settings"};
        // Favorites and recents keep their own order and skip names the catalogue lacks.
        QTest::newRow("favorites") << favorites << outline << "" << QStringList{"star", "calendar", "bell"};
        QTest::newRow("recents") << recents << outline << "" << QStringList{"mail", "home"};
        QTest::newRow("category") << media << outline << "" << QStringList{"camera", "music"};
        QTest::newRow("category filled") << PickerTab::ofCategory(u"System"_qs) << filled << ""
                                         << QStringList{"bell", "bookmark", "phone", "user"};
        QTest::newRow("category, query elsewhere") << media << outline << "gear" << QStringList{};
        // clang-format on
    }
    void tabLists()
    {
        QFETCH(PickerTab, tab);
        QFETCH(IconStyle, style);
        QFETCH(QString, query);
        QFETCH(QStringList, expected);
        for (const char* name : {"star", "gone", "calendar", "bell"})
            f->user->toggleFavorite(QString::fromLatin1(name));
        for (const char* name : {"home", "gone", "mail"})
            recordCopy(QString::fromLatin1(name));
        f->model->setTab(tab);
        f->model->setStyle(style);
        f->model->setQuery(query);
        QCOMPARE(f->model->resultNames(), expected);
        QVERIFY(expected.isEmpty() || expected.contains(f->model->selectedID()));
    }

    void queryAndStyleMoveTheSelection()
    {
        f->model->setSelectedID(u"home"_qs);
        int scrolls = f->model->scrollRequest();
        QSignalSpy resultsChanged(f->model.get(), &PickerModel::resultsChanged);
        f->model->setQuery(u"a"_qs);
        QCOMPARE(f->model->selectedID(), f->model->results().first().id());
        QCOMPARE(f->model->scrollRequest(), ++scrolls);
        f->model->setQuery(u"a"_qs); // unchanged: nothing happens
        QCOMPARE(resultsChanged.size(), 1);

        f->model->setQuery({});
        f->model->setSelectedID(u"bell"_qs);
        scrolls = f->model->scrollRequest();
        f->model->setStyle(IconStyle::filled); // bell has a filled form: kept, no scroll
        QCOMPARE(f->model->selectedID(), u"bell"_qs);
        QCOMPARE(f->model->scrollRequest(), scrolls);
        f->model->setStyle(IconStyle::outline);
        f->model->setSelectedID(u"calendar"_qs);
        f->model->setStyle(IconStyle::filled); // calendar has none: the first result
        QCOMPARE(f->model->selectedID(), u"arrow-left"_qs);
        QCOMPARE(f->model->scrollRequest(), scrolls + 1);

        // No results: the selection is kept, not cleared, and moves do nothing.
        f->model->setQuery(u"zzzz"_qs);
        scrolls = f->model->scrollRequest();
        f->model->move(1, 0);
        QCOMPARE(f->model->selectedID(), u"arrow-left"_qs);
        QCOMPARE(f->model->selectedIndex(), -1);
        QCOMPARE(f->model->scrollRequest(), scrolls);
    }

    void move_data()
    {
        QTest::addColumn<int>("from"); // -1: the selection is not among the results
        QTest::addColumn<int>("dx");
        QTest::addColumn<int>("dy");
        QTest::addColumn<int>("to");
        QTest::newRow("right on the last icon") << 18 << 1 << 0 << 18;
        QTest::newRow("up in the first row") << 3 << 0 << -1 << 0;
        QTest::newRow("down a row") << 3 << 0 << 1 << 11;
        QTest::newRow("down into the short row") << 13 << 0 << 1 << 18;
        QTest::newRow("right across a row end") << 7 << 1 << 0 << 8;
        QTest::newRow("page down") << 2 << 0 << 5 << 18;
        QTest::newRow("no selection") << -1 << 0 << 1 << 0;
    }
    void move()
    {
        QFETCH(int, from);
        QFETCH(int, dx);
        QFETCH(int, dy);
        QFETCH(int, to);
        f->model->setSelectedID(from >= 0 ? f->model->resultNames().at(from) : u"not-listed"_qs);
        const int scrolls = f->model->scrollRequest();
        f->model->move(dx, dy);
        QCOMPARE(f->model->selectedIndex(), to);
        QCOMPARE(f->model->selectedID(), f->model->results().at(to).id());
        QCOMPARE(f->model->scrollRequest(), scrolls + 1);
    }

    void prepareForShow_data()
    {
        QTest::addColumn<bool>("keepLastSearch");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("scrolls");
        // clang-format off
        QTest::newRow("cleared") << false << "arr" << "" << 2;
        QTest::newRow("spaces cleared") << false << "  " << "" << 2;
        QTest::newRow("kept") << true << "arr" << "arr" << 1;
        // clang-format on
    }
    void prepareForShow()
    {
        QFETCH(bool, keepLastSearch);
        QFETCH(QString, query);
        QFETCH(int, scrolls);
        f->prefs.setKeepLastSearch(keepLastSearch);
        f->model->setQuery(query);
        f->model->setTab(PickerTab::recents());
        const int scrollBefore = f->model->scrollRequest(), focusBefore = f->model->focusSearch();
        f->model->prepareForShow();
        QTEST(f->model->query(), "after");
        QCOMPARE(f->model->tab(), PickerTab::recents());
        QCOMPARE(f->model->focusSearch(), focusBefore + 1);
        QCOMPARE(f->model->scrollRequest(), scrollBefore + scrolls);
    }

    void copyUsesTheModelsLook()
    {
        QSignalSpy copied(f->model.get(), &PickerModel::copied);
        f->model->setStyle(IconStyle::filled);
        f->model->setColor(u"#ff0000"_qs);
        f->model->setSize(32);
        f->model->setStroke(1.5);
        f->model->setFormat(ExportFormat::tailwind);
        f->model->setSelectedID(u"bell"_qs);
        QVERIFY(f->model->copy());
        QCOMPARE(f->user->lastCopy(), std::optional(UserLibrary::LastCopy{
                                          u"bell"_qs, IconStyle::filled, ExportFormat::tailwind,
                                          u"#ff0000"_qs, 32, 1.5}));
        QVERIFY(f->model->copy(ExportFormat::png2));
        QCOMPARE(f->user->lastCopy()->format, ExportFormat::png2);
        QCOMPARE(copied.size(), 2);

        PickerModel withoutCopier(*f->library, *f->user, f->prefs, nullptr);
        const QSignalSpy notCopied(&withoutCopier, &PickerModel::copied);
        QVERIFY(!withoutCopier.copy());
        QVERIFY(notCopied.isEmpty());
    }

    void computedProperties_data()
    {
        QTest::addColumn<IconStyle>("style");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("select"); // empty: leave the selection alone
        QTest::addColumn<QString>("countLabel");
        QTest::addColumn<bool>("strokeEnabled");
        const auto outline = IconStyle::outline, filled = IconStyle::filled;
        // clang-format off
        QTest::newRow("empty query") << outline << "" << "bell" << "" << true;
        QTest::newRow("spaces only") << outline << "  " << "" << "" << true;
        QTest::newRow("one") << outline << "gear" << "" << "1 result" << true;
        QTest::newRow("several") << filled << "arrow" << "" << "2 results" << false;
        QTest::newRow("filled, no filled form") << filled << "" << "calendar" << "" << true;
        // No results: the selection stays for their return, but nothing is current.
        QTest::newRow("none") << filled << "zzzz" << "" << "0 results" << true;
        // clang-format on
    }
    void computedProperties()
    {
        QFETCH(IconStyle, style);
        QFETCH(QString, query);
        QFETCH(QString, select);
        QFETCH(QString, countLabel);
        f->model->setStyle(style);
        f->model->setQuery(query);
        if (!select.isEmpty())
            f->model->setSelectedID(select);
        QCOMPARE(f->model->countLabel(), countLabel);
        QCOMPARE(f->model->isSearching(), !countLabel.isEmpty());
        QTEST(f->model->strokeEnabled(), "strokeEnabled");
        QCOMPARE(f->model->placeholder(),
                 style == IconStyle::filled ? u"Search 11 icons"_qs : u"Search 19 icons"_qs);
    }

    void swatches_data()
    {
        QTest::addColumn<QString>("defaultColor");
        QTest::addColumn<QString>("color");
        QTest::addColumn<QStringList>("extras");
        // clang-format off
        QTest::newRow("none") << "currentColor" << "#DC2626" << QStringList{};
        QTest::newRow("case-blind match") << "#ffffff" << "#dc2626" << QStringList{};
        QTest::newRow("one custom, twice") << "#ff0000" << "#ff0000" << QStringList{"Custom #ff0000"};
        QTest::newRow("two customs") << "#ff0000" << "#00ff00"
                                     << QStringList{"Custom #ff0000", "Custom #00ff00"};
        // clang-format on
    }
    void swatches()
    {
        QFETCH(QString, defaultColor);
        QFETCH(QString, color);
        QFETCH(QStringList, extras);
        f->prefs.setDefaultColor(defaultColor);
        f->model->setColor(color);
        QStringList labels;
        for (const ColorSwatch& swatch : f->model->swatches())
            labels.append(swatch.label);
        QCOMPARE(labels.size(), 12 + extras.size());
        QCOMPARE(labels.mid(12), extras);
    }

    void defaultsFollowTheSettings()
    {
        QSignalSpy swatchesChanged(f->model.get(), &PickerModel::swatchesChanged);
        f->model->setSelectedID(u"bell"_qs);
        f->prefs.setDefaultColor(u"#123456"_qs);
        f->prefs.setDefaultSize(48);
        f->prefs.setDefaultStroke(1.75);
        f->prefs.setDefaultFormat(ExportFormat::blade);
        f->prefs.setDefaultStyle(IconStyle::filled);
        QCOMPARE(f->model->color(), u"#123456"_qs);
        QCOMPARE(swatchesChanged.size(), 1);
        QCOMPARE(f->model->size(), 48);
        QCOMPARE(f->model->stroke(), 1.75);
        QCOMPARE(f->model->format(), ExportFormat::blade);
        QCOMPARE(f->model->style(), IconStyle::filled);
        QCOMPARE(f->model->selectedID(), u"bell"_qs);
    }

    void deferredReactions()
    {
        f->load(entries());
        QSignalSpy changed(f->model.get(), &PickerModel::changed);
        QTRY_COMPARE(changed.size(), 1); // the check made at construction
        f->model->setTab(PickerTab::ofCategory(u"Media"_qs));
        f->model->setFormat(ExportFormat::png2);
        f->prefs.setShowCategoryBar(false);
        f->prefs.setPng2x(false);
        // Both wait until the change has landed.
        QCOMPARE(f->model->tab(), PickerTab::ofCategory(u"Media"_qs));
        QCOMPARE(f->model->format(), ExportFormat::png2);
        QTRY_COMPARE(f->model->tab(), PickerTab::all());
        QCOMPARE(f->model->format(), f->prefs.defaultFormat());
        QCOMPARE(changed.size(), 2); // one check serves both changes

        f->model->setTab(PickerTab::favorites());
        f->prefs.setShowCategoryBar(true);
        QTest::qWait(0);
        QCOMPARE(f->model->tab(), PickerTab::favorites());

        // Work queued for a model that is gone does nothing.
        f->prefs.setShowCategoryBar(false);
        f->model.reset();
        QTest::qWait(0);
    }

    void userListsRefreshTheirTabs()
    {
        f->user->toggleFavorite(u"bell"_qs);
        f->model->setTab(PickerTab::favorites());
        QSignalSpy resultsChanged(f->model.get(), &PickerModel::resultsChanged);
        const int scrolls = f->model->scrollRequest();
        f->user->toggleFavorite(u"home"_qs);
        QCOMPARE(f->model->resultNames(), (QStringList{u"bell"_qs, u"home"_qs}));
        QCOMPARE(f->model->selectedID(), u"bell"_qs);
        QCOMPARE(f->model->scrollRequest(), scrolls);
        f->user->toggleFavorite(u"bell"_qs);
        QCOMPARE(f->model->selectedID(), u"home"_qs);
        recordCopy(u"star"_qs); // not the tab shown
        QCOMPARE(resultsChanged.size(), 2);

        f->model->setTab(PickerTab::recents());
        recordCopy(u"map"_qs);
        QCOMPARE(f->model->resultNames(), (QStringList{u"map"_qs, u"star"_qs}));
    }

    void catalogueChangeRefreshes()
    {
        f->model->setSelectedID(u"star"_qs);
        QSignalSpy tabsChanged(f->model.get(), &PickerModel::tabsChanged);
        f->library->apply({u"2.0"_qs,
                           {Icon(u"star"_qs, u"Shapes"_qs, {}, PathList{"M0 0"}, {}),
                            Icon(u"tree"_qs, u"Nature"_qs, {}, PathList{"M0 0"}, {})}});
        QCOMPARE(f->model->resultNames(), (QStringList{u"star"_qs, u"tree"_qs}));
        QCOMPARE(f->model->selectedID(), u"star"_qs);
        QCOMPARE(tabsChanged.size(), 1);
        QCOMPARE(f->model->tabs().last(), PickerTab::ofCategory(u"Shapes"_qs));
        QCOMPARE(f->model->placeholder(), u"Search 2 icons"_qs);
    }

    // The grid's list model matches the results after every kind of change,
    // and never announces a change to the rows the old and new results share
    // at the start (the grid would rebuild delegates it could keep).
    void resultsModelFollowsTheResults()
    {
        PickerResultsModel rows;
        rows.setSource(f->model.get());
        const QAbstractItemModelTester tester(
            &rows, QAbstractItemModelTester::FailureReportingMode::QtTest);
        int firstTouched = INT_MAX;
        const auto touched = [&](const QModelIndex&, int first) {
            firstTouched = std::min(firstTouched, first);
        };
        connect(&rows, &QAbstractItemModel::rowsInserted, this, touched);
        connect(&rows, &QAbstractItemModel::rowsRemoved, this, touched);
        connect(&rows, &QAbstractItemModel::dataChanged, this, [&](const QModelIndex& from) {
            firstTouched = std::min(firstTouched, from.row());
        });
        connect(&rows, &QAbstractItemModel::modelReset, this, [&] { firstTouched = 0; });

        const auto rowNames = [&] {
            QStringList names;
            for (int row = 0; row < rows.rowCount(); ++row)
                names.append(rows.index(row).data(PickerResultsModel::iconNameRole).toString());
            return names;
        };
        const std::function<void()> steps[]{
            [&] { f->model->setQuery(u"arrow"_qs); },
            [&] { f->model->setQuery(u"arrow-u"_qs); },
            [&] { f->model->setQuery(u"arrow"_qs); },
            [&] { f->model->setQuery(u"s"_qs); },
            [&] { f->model->setQuery(u"zz"_qs); },
            [&] { f->model->setQuery(u"e"_qs); },
            [&] { f->model->setStyle(IconStyle::filled); },
            [&] { f->model->setQuery(QString()); },
            [&] { f->model->setTab(PickerTab::ofCategory(u"System"_qs)); },
            [&] { f->model->setStyle(IconStyle::outline); },
            [&] { f->model->setTab(PickerTab::all()); },
            [&] {
                f->user->toggleFavorite(u"map"_qs);
                f->model->setTab(PickerTab::favorites());
            },
        };
        QCOMPARE(rowNames(), f->model->resultNames());
        for (qsizetype step = 0; step < std::ssize(steps); ++step) {
            const QStringList before = rowNames();
            firstTouched = INT_MAX;
            steps[step]();
            const QStringList after = f->model->resultNames();
            QVERIFY2(rowNames() == after, qPrintable(u"step %1"_qs.arg(step)));
            int shared = 0;
            while (shared < std::min(before.size(), after.size()) &&
                   before.at(shared) == after.at(shared))
                ++shared;
            QVERIFY2(firstTouched >= shared, qPrintable(u"step %1"_qs.arg(step)));
        }
        rows.setSource(nullptr);
        QCOMPARE(rows.rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(TestPickerModel)
#include "tst_pickermodel.moc"
