#include "TrayMenu.h"

#include "Catalog/IconLibrary.h"
#include "MenuIcons.h"
#include "Panel/OfferedFormats.h"
#include "RecentRow.h"

#include <QActionGroup>
#include <QMenu>
#include <QWidgetAction>

namespace TrayMenu {
namespace {

constexpr double favoriteGlyphSize = 16;
constexpr double formatGlyphSize = 15;

Qt::KeyboardModifiers qtModifiers(quint64 flags, Rendition rendition)
{
    const bool mac = rendition == Rendition::mac;
    Qt::KeyboardModifiers modifiers;
    if (flags & KeyCombo::controlFlag)
        modifiers |= mac ? Qt::MetaModifier : Qt::ControlModifier;
    if (flags & KeyCombo::optionFlag)
        modifiers |= Qt::AltModifier;
    if (flags & KeyCombo::shiftFlag)
        modifiers |= Qt::ShiftModifier;
    if (flags & KeyCombo::commandFlag)
        modifiers |= mac ? Qt::ControlModifier : Qt::MetaModifier;
    return modifiers;
}

QAction* addItem(QMenu& menu, const QString& title, const std::function<void()>& run)
{
    QAction* action = menu.addAction(title);
    QObject::connect(action, &QAction::triggered, action, [run] {
        if (run)
            run();
    });
    return action;
}

void addRecentRow(QMenu& menu, const TrayMenuContent& content, const IconLibrary& library,
                  const TrayMenuActions& actions)
{
    if (content.recents.isEmpty())
        return;
    auto* row =
        new RecentRow(content.recents, library, [copy = actions.copyIcon](const QString& name) {
            if (copy)
                copy(name);
        });
    auto* action = new QWidgetAction(&menu);
    action->setDefaultWidget(row);
    menu.addAction(action);
}

void addFavorites(QMenu& menu, const TrayMenuContent& content, const IconLibrary& library,
                  const TrayMenuActions& actions, const QColor& glyphColor)
{
    QMenu* favorites = menu.addMenu(QStringLiteral("Favorites"));
    favorites->setToolTipsVisible(true);
    const QString tooltip =
        QStringLiteral("Copy as ") + Formats::label(content.defaultFormat, content.reactLanguage);
    for (const QString& name : content.favorites) {
        QAction* item = favorites->addAction(
            MenuIcons::glyph(library, name, favoriteGlyphSize, glyphColor), name);
        item->setData(name);
        item->setToolTip(tooltip);
        QObject::connect(item, &QAction::triggered, item, [item, copy = actions.copyIcon] {
            if (copy)
                copy(item->data());
        });
    }
    if (content.favorites.isEmpty())
        favorites->addAction(QStringLiteral("No favorites yet"))->setEnabled(false);
    favorites->addSeparator();
    addItem(*favorites, QStringLiteral("Show All Favorites in Picker"), actions.openFavorites);
}

void addCopyLast(QMenu& menu, const TrayMenuContent& content, const KeyboardLayout* layout,
                 const TrayMenuActions& actions)
{
    QAction* item = addItem(menu, QStringLiteral("Copy Last Icon Again"), actions.copyLast);
    item->setShortcut(shortcutHint(content.copyLastHotKey, layout, content.rendition));
    item->setEnabled(content.lastCopy.has_value());
    if (content.lastCopy) {
        item->setToolTip(content.lastCopy->name + QStringLiteral(" as ") +
                         Formats::label(content.lastCopy->format, content.reactLanguage));
    }
}

void addDefaultFormat(QMenu& menu, const TrayMenuContent& content, const IconLibrary& library,
                      const TrayMenuActions& actions, const QColor& glyphColor)
{
    // The current choice stands where a shortcut would, after a tab.
    const QString current = Formats::label(content.defaultFormat, content.reactLanguage);
    QMenu* formats = menu.addMenu(QStringLiteral("Default Format\t") + current);
    auto* group = new QActionGroup(formats);
    group->setExclusive(true);
    for (const ExportFormat format : Formats::codeFormats() + content.pngFormats) {
        QAction* item =
            formats->addAction(MenuIcons::glyph(library, OfferedFormats::glyphFor(format),
                                                formatGlyphSize, glyphColor),
                               Formats::label(format, content.reactLanguage));
        item->setData(rawValue(format));
        item->setCheckable(true);
        item->setChecked(format == content.defaultFormat);
        group->addAction(item);
        QObject::connect(item, &QAction::triggered, item, [item, set = actions.setFormat] {
            if (set)
                set(item->data());
        });
    }
}

} // namespace

QString keyEquivalent(const std::optional<KeyCombo>& combo, const KeyboardLayout* layout)
{
    if (!combo)
        return {};
    const QString name = KeyCombo::keyName(combo->keyCode, layout);
    return name.size() == 1 ? name.toLower() : QString();
}

QKeySequence shortcutHint(const std::optional<KeyCombo>& combo, const KeyboardLayout* layout,
                          Rendition rendition)
{
    const QString key = keyEquivalent(combo, layout);
    if (key.isEmpty())
        return {};
    // Qt names a character key by its upper-case code point.
    const auto qtKey = Qt::Key(key.toUpper().at(0).unicode());
    return QKeySequence(QKeyCombination(qtModifiers(combo->modifiers, rendition), qtKey));
}

void build(QMenu& menu, const TrayMenuContent& content, const IconLibrary& library,
           const KeyboardLayout* layout, const TrayMenuActions& actions)
{
    // Submenus are the menu's children, which clear() would leave behind.
    for (QMenu* submenu : menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly))
        delete submenu;
    menu.clear();
    menu.setToolTipsVisible(true);
    const QColor glyphColor = menu.palette().color(QPalette::WindowText);

    addItem(menu, QStringLiteral("Open Picker"), actions.openPicker)
        ->setShortcut(shortcutHint(content.pickerHotKey, layout, content.rendition));
    addRecentRow(menu, content, library, actions);
    addFavorites(menu, content, library, actions, glyphColor);
    addCopyLast(menu, content, layout, actions);
    addDefaultFormat(menu, content, library, actions, glyphColor);
    menu.addSeparator();
    addItem(menu, QStringLiteral("Settings…"), actions.openSettings)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    addItem(menu, QStringLiteral("Check for Updates…"), actions.checkUpdates);
    addItem(menu, QStringLiteral("About Pictray"), actions.openAbout);
    menu.addSeparator();
    addItem(menu, QStringLiteral("Quit Pictray"), actions.quit)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

} // namespace TrayMenu
