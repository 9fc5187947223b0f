#include "App/Shell/RecentRow.h"
#include "App/Shell/StatusItemController.h"
#include "App/Shell/TrayMenu.h"
#include "Catalog/IconLibrary.h"
#include "Platform/Xkb/XkbKeyboardLayout.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"
#include "TestData.h"

#include <QMenu>
#include <QTemporaryDir>
#include <QWidgetAction>
#include <QtTest>

namespace {

constexpr quint64 ctrlAlt = KeyCombo::controlFlag | KeyCombo::optionFlag;

QStringList titles(const QMenu* menu)
{
    QStringList list;
    for (const QAction* action : menu->actions()) {
        if (qobject_cast<const QWidgetAction*>(action))
            list.append(QStringLiteral("[recent row]"));
        else
            list.append(action->isSeparator() ? QStringLiteral("-")
                                              : action->text().section(u'\t', 0, 0));
    }
    return list;
}

QAction* item(const QMenu& menu, const QString& title)
{
    for (QAction* action : menu.actions()) {
        if (action->text().section(u'\t', 0, 0) == title)
            return action;
    }
    return nullptr;
}

RecentRow* recentRow(const QMenu& menu)
{
    for (QAction* action : menu.actions()) {
        if (auto* row = qobject_cast<QWidgetAction*>(action))
            return qobject_cast<RecentRow*>(row->defaultWidget());
    }
    return nullptr;
}

} // namespace

class TestTrayMenu : public QObject {
    Q_OBJECT

    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<KeyboardLayout> us;
    QStringList names; // real icon names, in catalogue order

    void build(QMenu& menu, const TrayMenuContent& content)
    {
        TrayMenu::build(menu, content, *library, us.get(), {});
    }

private slots:
    void initTestCase()
    {
        library = std::make_unique<IconLibrary>(
            IconLibrary::Sources{TestData::shippedCatalogue(), QString()});
        us = XkbKeyboardLayout::fromNames(QStringLiteral("us"));
        QVERIFY(us);
        for (int i = 0; i < 12; ++i)
            names.append(library->icons().at(i * 50).id());
    }

    void topLevelItemsInOrder()
    {
        QMenu menu;
        TrayMenuContent content;
        content.recents = names.mid(0, 2);
        build(menu, content);
        QCOMPARE(titles(&menu),
                 (QStringList{"Open Picker", "[recent row]", "Favorites", "Copy Last Icon Again",
                              "Default Format", "-", "Settings…", "Check for Updates…",
                              "About Pictray", "-", "Quit Pictray"}));
        QCOMPARE(item(menu, "Settings…")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
        QCOMPARE(item(menu, "Quit Pictray")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
        // The current default format is named beside its submenu.
        QCOMPARE(item(menu, "Default Format")->text(), QStringLiteral("Default Format\tRaw SVG"));

        // Opened again, the menu holds one set of items and one set of submenus.
        build(menu, content);
        QCOMPARE(menu.actions().size(), 11);
        QCOMPARE(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly).size(), 2);
    }

    void favorites_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("none") << 0
                              << QStringList{"No favorites yet", "-",
                                             "Show All Favorites in Picker"};
        QTest::newRow("two") << 2
                             << QStringList{names.at(3), names.at(4), "-",
                                            "Show All Favorites in Picker"};
    }

    void favorites()
    {
        QFETCH(int, count);
        QMenu menu;
        TrayMenuContent content;
        content.favorites = names.mid(3, count);
        content.defaultFormat = ExportFormat::vue;
        build(menu, content);
        const QMenu* submenu = item(menu, "Favorites")->menu();
        QVERIFY(submenu);
        QTEST(titles(submenu), "expected");
        const QAction* first = submenu->actions().first();
        if (count == 0) {
            QVERIFY(!first->isEnabled());
            return;
        }
        QVERIFY(first->isEnabled());
        QVERIFY(!first->icon().isNull());
        QCOMPARE(first->data().toString(), names.at(3));
        QCOMPARE(first->toolTip(), QStringLiteral("Copy as Vue component"));
    }

    void recentRow_data()
    {
        QTest::addColumn<int>("recents");
        QTest::addColumn<int>("shown");
        QTest::newRow("none") << 0 << -1;
        QTest::newRow("three") << 3 << 3;
        QTest::newRow("ten") << 10 << 7;
    }

    void recentRow()
    {
        QFETCH(int, recents);
        QFETCH(int, shown);
        QMenu menu;
        TrayMenuContent content;
        content.recents = names.mid(0, recents);
        build(menu, content);
        RecentRow* row = ::recentRow(menu);
        if (shown < 0) {
            QVERIFY(!row);
            return;
        }
        QVERIFY(row);
        QCOMPARE(row->size(), QSize(228, 58));
        QCOMPARE(row->icons(), names.mid(0, shown));
        QVERIFY(QRect(QPoint(), row->size()).contains(row->cellRect(shown - 1)));
    }

    void recentRowClickCopies()
    {
        QString copied;
        RecentRow row(names.mid(0, 3), *library, [&](const QString& name) { copied = name; });
        QTest::mouseClick(&row, Qt::LeftButton, {}, row.cellRect(1).center());
        QCOMPARE(copied, names.at(1));
        copied.clear();
        QTest::mouseClick(&row, Qt::LeftButton, {}, QPoint(2, 2)); // the caption
        QVERIFY(copied.isEmpty());
    }

    void keyHint_data()
    {
        QTest::addColumn<std::optional<KeyCombo>>("combo");
        QTest::addColumn<Rendition>("rendition");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QKeySequence>("hint");
        const auto pc = Rendition::pc, mac = Rendition::mac;
        const std::optional shiftCmdComma(
            KeyCombo{43, KeyCombo::shiftFlag | KeyCombo::commandFlag});
        QTest::newRow("ctrl-alt-i") << std::optional(KeyCombo{34, ctrlAlt}) << pc << "i"
                                    << QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_I);
        // Qt on a Mac calls Command Ctrl and Control Meta.
        QTest::newRow("mac: control-option-i") << std::optional(KeyCombo{34, ctrlAlt}) << mac << "i"
                                               << QKeySequence(Qt::META | Qt::ALT | Qt::Key_I);
        QTest::newRow("mac: shift-cmd-comma")
            << shiftCmdComma << mac << "," << QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_Comma);
        QTest::newRow("space") << std::optional(KeyCombo{49, ctrlAlt}) << pc << ""
                               << QKeySequence();
        QTest::newRow("none") << std::optional<KeyCombo>() << pc << "" << QKeySequence();
    }

    void keyHint()
    {
        QFETCH(std::optional<KeyCombo>, combo);
        QFETCH(Rendition, rendition);
        QFETCH(QKeySequence, hint);
        QTEST(TrayMenu::keyEquivalent(combo, us.get()), "key");
        QMenu menu;
        TrayMenuContent content;
        content.pickerHotKey = combo;
        content.copyLastHotKey = combo;
        content.rendition = rendition;
        build(menu, content);
        QCOMPARE(item(menu, "Open Picker")->shortcut(), hint);
        QCOMPARE(item(menu, "Copy Last Icon Again")->shortcut(), hint);
    }

    void copyLastNeedsALastCopy()
    {
        QMenu menu;
        TrayMenuContent content;
        build(menu, content);
        QVERIFY(!item(menu, "Copy Last Icon Again")->isEnabled());
        content.lastCopy = UserLibrary::LastCopy{
            names.at(0), IconStyle::outline, ExportFormat::png2, "#000000", 24, 2};
        build(menu, content);
        QVERIFY(item(menu, "Copy Last Icon Again")->isEnabled());
        QCOMPARE(item(menu, "Copy Last Icon Again")->toolTip(), names.at(0) + " as PNG @2x");
    }

    void formats_data()
    {
        QTest::addColumn<QList<ExportFormat>>("png");
        QTest::addColumn<QStringList>("expected");
        const QStringList code{
            "Raw SVG", "React / TSX", "Vue component", "Blade component", "Tailwind (currentColor)",
            "Data URI"};
        QTest::newRow("no PNG sizes") << QList<ExportFormat>() << code;
        QTest::newRow("1x and 3x") << QList<ExportFormat>{ExportFormat::png1, ExportFormat::png3}
                                   << code + QStringList{"PNG @1x", "PNG @3x"};
    }

    void formats()
    {
        QFETCH(QList<ExportFormat>, png);
        QMenu menu;
        TrayMenuContent content;
        content.pngFormats = png;
        content.defaultFormat = ExportFormat::blade;
        build(menu, content);
        const QMenu* submenu = item(menu, "Default Format")->menu();
        QTEST(titles(submenu), "expected");
        for (const QAction* action : submenu->actions()) {
            QVERIFY2(!action->icon().isNull(), qPrintable(action->text()));
            QCOMPARE(action->isChecked(), action->data().toString() == "blade");
        }
    }

    // Through the controller: the menu reads the settings, its items write them.
    void controllerStoresChoices()
    {
        QTemporaryDir dir;
        SettingsStore store(dir.filePath("Pictray.conf"));
        Preferences prefs(store);
        UserLibrary user(store, prefs,
                         [&](const QString& name) { return !library->icon(name).isNull(); });
        std::optional<PickerTab> shownTab;
        QStringList copied;
        StatusItemController::Actions actions;
        actions.showPicker = [&](std::optional<PickerTab> tab) { shownTab = tab; };
        actions.copyIcon = [&](const Icon& icon) { copied.append(icon.id()); };
        StatusItemController controller(prefs, user, *library, actions);
        controller.setKeyboardLayout(XkbKeyboardLayout::fromNames("us"));
        controller.rebuildMenu();

        QMenu* formats = item(controller.menu(), "Default Format")->menu();
        item(*formats, "Data URI")->trigger();
        QCOMPARE(store.stringValue("defaultFormat"), QString("dataURI"));
        controller.rebuildMenu();
        formats = item(controller.menu(), "Default Format")->menu();
        QVERIFY(item(*formats, "Data URI")->isChecked());
        QVERIFY(!item(*formats, "Raw SVG")->isChecked());
        // Items carrying something else change nothing.
        controller.setFormat(QStringLiteral("gif"));
        controller.setFormat(3);
        QCOMPARE(prefs.defaultFormat(), ExportFormat::dataURI);

        controller.copyIcon(QStringLiteral("no-such-icon"));
        controller.copyIcon(42);
        QVERIFY(copied.isEmpty());
        item(*item(controller.menu(), "Favorites")->menu(), "Show All Favorites in Picker")
            ->trigger();
        QCOMPARE(shownTab, std::optional(PickerTab::favorites()));
        item(controller.menu(), "Open Picker")->trigger();
        QCOMPARE(shownTab, std::optional<PickerTab>());
    }
};

QTEST_MAIN(TestTrayMenu)
#include "tst_traymenu.moc"
