#include "Catalog/PackageConverter.h"
#include "Export/IconCopier.h"
#include "Picker/PickerModel.h"
#include "Picker/PickerResultsModel.h"
#include "State/SettingsStore.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
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

struct RecordingCopier : IconCopier {
    QList<std::pair<IconExport, ExportFormat>> calls;
    bool succeed = true;
    bool copy(const IconExport& icon, ExportFormat format) override
    {
        calls.append({icon, format});
        return succeed;
    }
};

} // namespace

class TestPickerModel : public QObject {
    Q_OBJECT

    QTemporaryDir dir;
    int files = 0;
    std::unique_ptr<SettingsStore> store;
    std::unique_ptr<Preferences> prefs;
    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<UserLibrary> user;
    RecordingCopier copier;
    std::unique_ptr<PickerModel> model;

    void build(const std::vector<OutEntry>& icons = entries())
    {
        model.reset();
        QFile file(dir.filePath(QStringLiteral("catalogue-%1.json").arg(++files)));
        if (!file.open(QIODevice::WriteOnly) ||
            !file.write(PackageConverter::OutFile{"1.0", icons}.encode()))
            qFatal("cannot write the catalogue");
        file.close();
        library = std::make_unique<IconLibrary>(IconLibrary::Sources{file.fileName(), {}});
        user = std::make_unique<UserLibrary>(
            *store, *prefs, [this](const QString& name) { return !library->icon(name).isNull(); });
        model = std::make_unique<PickerModel>(*library, *user, *prefs, &copier);
    }

    void recordCopy(const QString& name)
    {
        UserLibrary::LastCopy copy;
        copy.name = name;
        user->recordCopy(copy);
    }

private slots:
    void init()
    {
        model.reset();
        user.reset();
        prefs.reset();
        // A new file per test: QSettings caches what it read by path.
        store = std::make_unique<SettingsStore>(
            dir.filePath(QStringLiteral("settings-%1.conf").arg(++files)));
        prefs = std::make_unique<Preferences>(*store);
        copier.calls.clear();
        copier.succeed = true;
        build();
    }

    void constructionStartsOnHeartWithTheDefaults()
    {
        QCOMPARE(model->selectedID(), u"heart"_qs);
        QCOMPARE(model->tabs().at(3), PickerTab::ofCategory(u"Arrows"_qs));

        prefs->setDefaultStyle(IconStyle::filled);
        prefs->setDefaultColor(u"#ff0000"_qs);
        prefs->setDefaultSize(40);
        prefs->setDefaultStroke(1.25);
        prefs->setDefaultFormat(ExportFormat::vue);
        std::vector<OutEntry> noHeart = entries();
        std::erase_if(noHeart, [](const OutEntry& e) { return e.n == u"heart"_qs; });
        build(noHeart);
        QCOMPARE(model->selectedID(), u"arrow-left"_qs); // the first filled icon
        QCOMPARE(model->currentExport(),
                 std::optional(IconExport{library->icon(u"arrow-left"), IconStyle::filled, 40, 1.25,
                                          u"#ff0000"_qs}));
        QCOMPARE(model->format(), ExportFormat::vue);

        build({});
        QVERIFY(model->selectedID().isEmpty());
        QSignalSpy nothing(model.get(), &PickerModel::nothingToCopy);
        QVERIFY(!model->copy());
        QCOMPARE(nothing.size(), 1);
        QVERIFY(copier.calls.isEmpty());
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
        QTest::newRow("favorites filled") << favorites << filled << "" << QStringList{"star", "bell"};
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
            user->toggleFavorite(QString::fromLatin1(name));
        for (const char* name : {"home", "gone", "mail"})
            recordCopy(QString::fromLatin1(name));
        model->setTab(tab);
        model->setStyle(style);
        model->setQuery(query);
        QCOMPARE(model->resultNames(), expected);
        QVERIFY(expected.isEmpty() || expected.contains(model->selectedID()));
    }

    void queryAndStyleMoveTheSelection()
    {
        model->setSelectedID(u"home"_qs);
        int scrolls = model->scrollRequest();
        QSignalSpy resultsChanged(model.get(), &PickerModel::resultsChanged);
        model->setQuery(u"a"_qs);
        QCOMPARE(model->selectedID(), model->results().first().id());
        QCOMPARE(model->scrollRequest(), ++scrolls);
        model->setQuery(u"a"_qs); // unchanged: nothing happens
        QCOMPARE(resultsChanged.size(), 1);

        model->setQuery({});
        model->setSelectedID(u"bell"_qs);
        scrolls = model->scrollRequest();
        model->setStyle(IconStyle::filled); // bell has a filled form: kept, no scroll
        QCOMPARE(model->selectedID(), u"bell"_qs);
        QCOMPARE(model->scrollRequest(), scrolls);
        model->setStyle(IconStyle::outline);
        model->setSelectedID(u"calendar"_qs);
        model->setStyle(IconStyle::filled); // calendar has none: the first result
        QCOMPARE(model->selectedID(), u"arrow-left"_qs);
        QCOMPARE(model->scrollRequest(), scrolls + 1);

        // No results: the selection is kept, not cleared, and moves do nothing.
        model->setQuery(u"zzzz"_qs);
        scrolls = model->scrollRequest();
        model->move(1, 0);
        QCOMPARE(model->selectedID(), u"arrow-left"_qs);
        QCOMPARE(model->selectedIndex(), -1);
        QCOMPARE(model->scrollRequest(), scrolls);
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
        QTest::newRow("left across a row start") << 8 << -1 << 0 << 7;
        QTest::newRow("page down") << 2 << 0 << 5 << 18;
        QTest::newRow("page up") << 17 << 0 << -5 << 0;
        QTest::newRow("no selection") << -1 << 0 << 1 << 0;
    }
    void move()
    {
        QFETCH(int, from);
        QFETCH(int, dx);
        QFETCH(int, dy);
        QFETCH(int, to);
        model->setSelectedID(from >= 0 ? model->resultNames().at(from) : u"not-listed"_qs);
        const int scrolls = model->scrollRequest();
        model->move(dx, dy);
        QCOMPARE(model->selectedIndex(), to);
        QCOMPARE(model->selectedID(), model->results().at(to).id());
        QCOMPARE(model->scrollRequest(), scrolls + 1);
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
        QTest::newRow("empty") << false << "" << "" << 1;
        // clang-format on
    }
    void prepareForShow()
    {
        QFETCH(bool, keepLastSearch);
        QFETCH(QString, query);
        QFETCH(QString, after);
        QFETCH(int, scrolls);
        prefs->setKeepLastSearch(keepLastSearch);
        model->setQuery(query);
        model->setTab(PickerTab::recents());
        const int scrollBefore = model->scrollRequest(), focusBefore = model->focusSearch();
        model->prepareForShow();
        QCOMPARE(model->query(), after);
        QCOMPARE(model->tab(), PickerTab::recents());
        QCOMPARE(model->focusSearch(), focusBefore + 1);
        QCOMPARE(model->scrollRequest(), scrollBefore + scrolls);
    }

    void copyUsesTheModelsLook()
    {
        QSignalSpy copied(model.get(), &PickerModel::copied);
        model->setStyle(IconStyle::filled);
        model->setColor(u"#ff0000"_qs);
        model->setSize(32);
        model->setStroke(1.5);
        model->setFormat(ExportFormat::tailwind);
        model->setSelectedID(u"bell"_qs);
        QVERIFY(model->copy());
        QVERIFY(model->copy(ExportFormat::png2));
        const IconExport bell{library->icon(u"bell"), IconStyle::filled, 32, 1.5, u"#ff0000"_qs};
        QCOMPARE(copier.calls, (QList<std::pair<IconExport, ExportFormat>>{
                                   {bell, ExportFormat::tailwind}, {bell, ExportFormat::png2}}));
        QCOMPARE(copied.size(), 2);

        copier.succeed = false;
        QVERIFY(!model->copy());
        QCOMPARE(copied.size(), 2);
        PickerModel withoutCopier(*library, *user, *prefs, nullptr);
        QVERIFY(!withoutCopier.copy());
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
        // No results keep the selection, and so the current icon.
        QTest::newRow("none") << filled << "zzzz" << "" << "0 results" << false;
        // clang-format on
    }
    void computedProperties()
    {
        QFETCH(IconStyle, style);
        QFETCH(QString, query);
        QFETCH(QString, select);
        QFETCH(QString, countLabel);
        model->setStyle(style);
        model->setQuery(query);
        if (!select.isEmpty())
            model->setSelectedID(select);
        QCOMPARE(model->countLabel(), countLabel);
        QCOMPARE(model->isSearching(), !countLabel.isEmpty());
        QTEST(model->strokeEnabled(), "strokeEnabled");
        QCOMPARE(model->placeholder(),
                 style == IconStyle::filled ? u"Search 11 icons"_qs : u"Search 19 icons"_qs);
    }

    void labelsGroupThousands()
    {
        std::vector<OutEntry> many;
        for (int i = 0; i < 1234; ++i)
            many.push_back({u"box-%1"_qs.arg(i), u"Shapes"_qs, {}, PathList{"M0 0h1"}, {}});
        build(many);
        model->setQuery(u"box"_qs);
        QCOMPARE(model->countLabel(), u"1,234 results"_qs);
        QCOMPARE(model->placeholder(), u"Search 1,234 icons"_qs);
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
        prefs->setDefaultColor(defaultColor);
        model->setColor(color);
        QStringList labels;
        for (const ColorSwatch& swatch : model->swatches())
            labels.append(swatch.label);
        QCOMPARE(labels.size(), 12 + extras.size());
        QCOMPARE(labels.mid(12), extras);
    }

    void defaultsFollowTheSettings()
    {
        QSignalSpy swatchesChanged(model.get(), &PickerModel::swatchesChanged);
        model->setSelectedID(u"bell"_qs);
        prefs->setDefaultColor(u"#123456"_qs);
        prefs->setDefaultSize(48);
        prefs->setDefaultStroke(1.75);
        prefs->setDefaultFormat(ExportFormat::blade);
        prefs->setDefaultStyle(IconStyle::filled);
        QCOMPARE(model->color(), u"#123456"_qs);
        QCOMPARE(swatchesChanged.size(), 1);
        QCOMPARE(model->size(), 48);
        QCOMPARE(model->stroke(), 1.75);
        QCOMPARE(model->format(), ExportFormat::blade);
        QCOMPARE(model->style(), IconStyle::filled);
        QCOMPARE(model->selectedID(), u"bell"_qs);
    }

    void deferredReactions()
    {
        build();
        QSignalSpy changed(model.get(), &PickerModel::changed);
        QTRY_COMPARE(changed.size(), 1); // the check made at construction
        model->setTab(PickerTab::ofCategory(u"Media"_qs));
        model->setFormat(ExportFormat::png2);
        prefs->setShowCategoryBar(false);
        prefs->setPng2x(false);
        // Both wait until the change has landed.
        QCOMPARE(model->tab(), PickerTab::ofCategory(u"Media"_qs));
        QCOMPARE(model->format(), ExportFormat::png2);
        QTRY_COMPARE(model->tab(), PickerTab::all());
        QCOMPARE(model->format(), prefs->defaultFormat());
        QCOMPARE(changed.size(), 2); // one check serves both changes

        model->setTab(PickerTab::favorites());
        prefs->setShowCategoryBar(true);
        QTest::qWait(0);
        QCOMPARE(model->tab(), PickerTab::favorites());

        // Work queued for a model that is gone does nothing.
        prefs->setShowCategoryBar(false);
        model.reset();
        QTest::qWait(0);
    }

    void userListsRefreshTheirTabs()
    {
        user->toggleFavorite(u"bell"_qs);
        model->setTab(PickerTab::favorites());
        QSignalSpy resultsChanged(model.get(), &PickerModel::resultsChanged);
        const int scrolls = model->scrollRequest();
        user->toggleFavorite(u"home"_qs);
        QCOMPARE(model->resultNames(), (QStringList{u"bell"_qs, u"home"_qs}));
        QCOMPARE(model->selectedID(), u"bell"_qs);
        QCOMPARE(model->scrollRequest(), scrolls);
        user->toggleFavorite(u"bell"_qs);
        QCOMPARE(model->selectedID(), u"home"_qs);
        recordCopy(u"star"_qs); // not the tab shown
        QCOMPARE(resultsChanged.size(), 2);

        model->setTab(PickerTab::recents());
        recordCopy(u"map"_qs);
        QCOMPARE(model->resultNames(), (QStringList{u"map"_qs, u"star"_qs}));
    }

    void catalogueChangeRefreshes()
    {
        model->setSelectedID(u"star"_qs);
        QSignalSpy tabsChanged(model.get(), &PickerModel::tabsChanged);
        library->apply({u"2.0"_qs,
                        {Icon(u"star"_qs, u"Shapes"_qs, {}, PathList{"M0 0"}, {}),
                         Icon(u"tree"_qs, u"Nature"_qs, {}, PathList{"M0 0"}, {})}});
        QCOMPARE(model->resultNames(), (QStringList{u"star"_qs, u"tree"_qs}));
        QCOMPARE(model->selectedID(), u"star"_qs);
        QCOMPARE(tabsChanged.size(), 1);
        QCOMPARE(model->tabs().last(), PickerTab::ofCategory(u"Shapes"_qs));
        QCOMPARE(model->placeholder(), u"Search 2 icons"_qs);
    }

    // The grid's list model matches the results after every kind of change,
    // and never announces a change to the rows the old and new results share
    // at the start (the grid would rebuild delegates it could keep).
    void resultsModelFollowsTheResults()
    {
        PickerResultsModel rows;
        rows.setSource(model.get());
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
            [&] { model->setQuery(u"arrow"_qs); },
            [&] { model->setQuery(u"arrow-u"_qs); },
            [&] { model->setQuery(u"arrow"_qs); },
            [&] { model->setQuery(u"s"_qs); },
            [&] { model->setQuery(u"zz"_qs); },
            [&] { model->setQuery(u"e"_qs); },
            [&] { model->setStyle(IconStyle::filled); },
            [&] { model->setQuery(QString()); },
            [&] { model->setTab(PickerTab::ofCategory(u"System"_qs)); },
            [&] { model->setStyle(IconStyle::outline); },
            [&] { model->setTab(PickerTab::all()); },
            [&] {
                user->toggleFavorite(u"map"_qs);
                model->setTab(PickerTab::favorites());
            },
        };
        QCOMPARE(rowNames(), model->resultNames());
        for (qsizetype step = 0; step < std::ssize(steps); ++step) {
            const QStringList before = rowNames();
            firstTouched = INT_MAX;
            steps[step]();
            const QStringList after = model->resultNames();
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
