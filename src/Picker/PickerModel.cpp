#include "PickerModel.h"

#include "Export/IconCopier.h"

#include <QMetaMethod>
#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace {

int clampedToInt(qint64 value)
{
    return static_cast<int>(std::clamp<qint64>(value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

QList<PickerTab> tabsOf(const QStringList& categories)
{
    QList<PickerTab> tabs{PickerTab::all(), PickerTab::favorites(), PickerTab::recents()};
    tabs.reserve(tabs.size() + categories.size());
    for (const QString& category : categories)
        tabs.append(PickerTab::ofCategory(category));
    return tabs;
}

bool sameIcon(const Icon& a, const Icon& b)
{
    return a.identity() == b.identity();
}

bool sameExport(const std::optional<IconExport>& a, const std::optional<IconExport>& b)
{
    if (!a || !b)
        return a.has_value() == b.has_value();
    return *a == *b && sameIcon(a->icon, b->icon);
}

} // namespace

class PickerModel::ChangeScope {
public:
    explicit ChangeScope(PickerModel& model) : m_model(model) { ++m_model.m_changeDepth; }
    ~ChangeScope()
    {
        if (--m_model.m_changeDepth == 0)
            m_model.announceDerived();
    }
    ChangeScope(const ChangeScope&) = delete;
    ChangeScope& operator=(const ChangeScope&) = delete;

private:
    PickerModel& m_model;
};

PickerModel::PickerModel(IconLibrary& library, UserLibrary& user, Preferences& prefs,
                         IconCopier* copier, QObject* parent)
    : QObject(parent), m_library(library), m_user(user), m_prefs(prefs), m_copier(copier),
      m_style(prefs.defaultStyle()), m_color(prefs.defaultColor()),
      m_size(clampedToInt(prefs.defaultSize())), m_stroke(prefs.defaultStroke()),
      m_format(prefs.defaultFormat()), m_tabs(tabsOf(library.categories())),
      m_outlineCount(library.outlineCount()), m_filledCount(library.filledCount())
{
    refresh(false);
    // The picker always opens on the start icon when it is listed.
    if (indexOf(startIconName()) >= 0)
        assignSelection(startIconName());
    m_announced = derived();
    subscribe();
    // The format is checked once now as well as after every settings change.
    scheduleFormatCheck();
}

void PickerModel::subscribe()
{
    // Connections made with `this` as context end with the model, and so do
    // the deferred reactions queued on it.
    connect(&m_user, &UserLibrary::favoritesChanged, this, [this] {
        if (m_tab.is(PickerTab::Kind::favorites))
            refresh(true);
    });
    connect(&m_user, &UserLibrary::recentsChanged, this, [this] {
        if (m_tab.is(PickerTab::Kind::recents))
            refresh(true);
    });
    connect(&m_library, &IconLibrary::catalogueChanged, this, &PickerModel::catalogueReplaced);

    // The default look overwrites the working one only when it changes.
    connect(&m_prefs, &Preferences::defaultFormatChanged, this,
            [this] { setFormat(m_prefs.defaultFormat()); });
    connect(&m_prefs, &Preferences::defaultColorChanged, this, [this] {
        const ChangeScope scope(*this); // the swatches follow the default colour too
        setColor(m_prefs.defaultColor());
    });
    connect(&m_prefs, &Preferences::defaultSizeChanged, this,
            [this] { setSize(clampedToInt(m_prefs.defaultSize())); });
    connect(&m_prefs, &Preferences::defaultStrokeChanged, this,
            [this] { setStroke(m_prefs.defaultStroke()); });
    connect(&m_prefs, &Preferences::defaultStyleChanged, this,
            [this] { setStyle(m_prefs.defaultStyle()); });
    connect(&m_prefs, &Preferences::showCategoryBarChanged, this, [this] {
        // With the bar hidden there is no way back to All but this.
        if (m_prefs.showCategoryBar())
            return;
        QMetaObject::invokeMethod(
            this, [this] { setTab(PickerTab::all()); }, Qt::QueuedConnection);
    });

    // Every setting, including ones added later, leads to the format check.
    const QMetaObject& prefsMeta = Preferences::staticMetaObject;
    const QMetaMethod onChange =
        staticMetaObject.method(staticMetaObject.indexOfSlot("scheduleFormatCheck()"));
    for (int i = prefsMeta.propertyOffset(); i < prefsMeta.propertyCount(); ++i) {
        const QMetaProperty property = prefsMeta.property(i);
        if (property.hasNotifySignal())
            connect(&m_prefs, property.notifySignal(), this, onChange);
    }
}

void PickerModel::scheduleFormatCheck()
{
    // Deferred so that it sees the new value; one check serves a burst of changes.
    if (m_formatCheckQueued)
        return;
    m_formatCheckQueued = true;
    QMetaObject::invokeMethod(this, &PickerModel::checkFormat, Qt::QueuedConnection);
}

void PickerModel::checkFormat()
{
    m_formatCheckQueued = false;
    const ChangeScope scope(*this);
    // A PNG scale switched off falls back at once, so the copy button never
    // offers a format the settings disabled.
    const QList<ExportFormat> allowed = Formats::codeFormats() + m_prefs.enabledPNGFormats();
    if (!allowed.contains(m_format))
        setFormat(m_prefs.defaultFormat());
    emit changed();
}

void PickerModel::catalogueReplaced()
{
    const ChangeScope scope(*this);
    m_outlineCount = m_library.outlineCount();
    m_filledCount = m_library.filledCount();
    QList<PickerTab> tabs = tabsOf(m_library.categories());
    if (tabs != m_tabs) {
        m_tabs = std::move(tabs);
        emit tabsChanged();
    }
    refresh(true);
}

void PickerModel::setQuery(const QString& query)
{
    if (query == m_query)
        return;
    const ChangeScope scope(*this);
    m_query = query;
    emit queryChanged();
    refresh(false);
}

void PickerModel::setTab(const PickerTab& tab)
{
    if (tab == m_tab)
        return;
    const ChangeScope scope(*this);
    m_tab = tab;
    emit tabChanged();
    refresh(false);
}

bool PickerModel::canSearchAllIcons() const
{
    return isSearching() && m_results.isEmpty() && m_tab != PickerTab::all();
}

bool PickerModel::searchAllIcons()
{
    if (!canSearchAllIcons())
        return false;
    setTab(PickerTab::all());
    requestSearchFocus();
    return true;
}

void PickerModel::setStyle(IconStyle style)
{
    if (style == m_style)
        return;
    const ChangeScope scope(*this);
    m_style = style;
    emit styleChanged();
    refresh(true);
}

void PickerModel::setSelectedID(const QString& name)
{
    const ChangeScope scope(*this);
    if (assignSelection(name))
        emit selectedIDChanged();
}

void PickerModel::setColor(const QString& color)
{
    if (color == m_color)
        return;
    const ChangeScope scope(*this);
    m_color = color;
    emit colorChanged();
}

void PickerModel::setSize(int size)
{
    if (size == m_size)
        return;
    const ChangeScope scope(*this);
    m_size = size;
    emit sizeChanged();
}

void PickerModel::setStroke(double stroke)
{
    if (stroke == m_stroke)
        return;
    const ChangeScope scope(*this);
    m_stroke = stroke;
    emit strokeChanged();
}

void PickerModel::setFormat(ExportFormat format)
{
    if (format == m_format)
        return;
    m_format = format;
    emit formatChanged();
}

bool PickerModel::isSearching() const
{
    return !m_query.trimmed().isEmpty();
}

Icon PickerModel::current() const
{
    if (m_results.isEmpty())
        return {}; // a selection kept for when results return is not shown
    if (!m_selectedID.isEmpty()) {
        Icon selected = m_library.icon(m_selectedID);
        if (!selected.isNull())
            return selected;
    }
    return m_results.isEmpty() ? Icon() : m_results.constFirst();
}

QString PickerModel::currentName() const
{
    const Icon icon = current();
    return icon.isNull() ? QString() : icon.id();
}

std::optional<IconExport> PickerModel::currentExport() const
{
    const Icon icon = current();
    if (icon.isNull())
        return std::nullopt;
    return exportOf(icon);
}

IconExport PickerModel::exportOf(const Icon& icon) const
{
    return IconExport{icon, m_style, m_size, m_stroke, m_color};
}

bool PickerModel::strokeEnabled() const
{
    if (m_style != IconStyle::filled)
        return true;
    const Icon icon = current();
    return icon.isNull() || !icon.has(IconStyle::filled);
}

QString PickerModel::countLabel() const
{
    if (!isSearching())
        return {};
    const qsizetype count = m_results.size();
    return IconLibrary::number(count) +
           (count == 1 ? QStringLiteral(" result") : QStringLiteral(" results"));
}

QString PickerModel::placeholder() const
{
    const int count = m_style == IconStyle::filled ? m_filledCount : m_outlineCount;
    return QStringLiteral("Search ") + IconLibrary::number(count) + QStringLiteral(" icons");
}

QList<ColorSwatch> PickerModel::swatches() const
{
    return ColorSwatches::forColors(m_prefs.defaultColor(), m_color);
}

QStringList PickerModel::resultNames() const
{
    QStringList names;
    names.reserve(m_results.size());
    for (const Icon& icon : m_results)
        names.append(icon.id());
    return names;
}

IconList PickerModel::iconsNamed(const QStringList& names) const
{
    // Names the catalogue lacks (dropped by an update) are skipped, not shown blank.
    IconList icons;
    icons.reserve(names.size());
    for (const QString& name : names) {
        Icon icon = m_library.icon(name);
        if (!icon.isNull())
            icons.append(std::move(icon));
    }
    return icons;
}

IconList PickerModel::sourceIcons() const
{
    switch (m_tab.kind()) {
    case PickerTab::Kind::all:
        return m_library.icons();
    case PickerTab::Kind::favorites:
        return iconsNamed(m_user.favorites());
    case PickerTab::Kind::recents:
        return iconsNamed(m_user.recents());
    case PickerTab::Kind::category:
        break;
    }
    IconList icons;
    const QString category = m_tab.categoryName();
    for (const Icon& icon : m_library.icons()) {
        if (icon.category() == category)
            icons.append(icon);
    }
    return icons;
}

void PickerModel::refresh(bool keepSelection)
{
    const ChangeScope scope(*this);
    IconList source = sourceIcons();
    if (m_style == IconStyle::filled) {
        // Copied out rather than removed in place: the source is often the
        // catalogue's own list, which removal would first copy whole.
        IconList filled;
        filled.reserve(source.size());
        std::copy_if(source.cbegin(), source.cend(), std::back_inserter(filled),
                     [](const Icon& icon) { return icon.has(IconStyle::filled); });
        source = std::move(filled);
    }
    IconList results = m_library.search(m_query, source);
    const bool resultsDiffer = results != m_results;
    m_results = std::move(results);
    m_selectedIndex = indexOf(m_selectedID);

    const bool keep = keepSelection && m_selectedIndex >= 0;
    // With no results the selection stays as it was rather than being cleared.
    const bool selectionMoved =
        !keep && !m_results.isEmpty() && assignSelection(m_results.constFirst().id(), 0);
    if (resultsDiffer)
        emit resultsChanged();
    if (selectionMoved)
        emit selectedIDChanged();
    if (!keep)
        bumpScrollRequest();
}

void PickerModel::move(int dx, int dy)
{
    if (m_results.isEmpty())
        return;
    const ChangeScope scope(*this);
    qsizetype target = 0;
    if (m_selectedIndex >= 0) {
        // The list is linear: across a row end the move continues on the next row.
        target = std::max<qsizetype>(0, m_selectedIndex + dx + qsizetype(columns) * dy);
        target = std::min(target, m_results.size() - 1);
    }
    if (assignSelection(m_results.at(target).id(), target))
        emit selectedIDChanged();
    bumpScrollRequest();
}

void PickerModel::prepareForShow()
{
    const ChangeScope scope(*this);
    if (!m_prefs.keepLastSearch() && !m_query.isEmpty())
        setQuery(QString());
    requestSearchFocus();
    bumpScrollRequest();
}

bool PickerModel::copy(std::optional<ExportFormat> format)
{
    const std::optional<IconExport> icon = currentExport();
    if (!icon) {
        emit nothingToCopy();
        return false;
    }
    if (!m_copier || !m_copier->copy(*icon, format.value_or(m_format)))
        return false;
    emit copied();
    return true;
}

void PickerModel::requestSearchFocus()
{
    ++m_focusSearch;
    emit focusSearchChanged();
}

void PickerModel::announceChange()
{
    const ChangeScope scope(*this);
    emit changed();
}

qsizetype PickerModel::indexOf(const QString& name) const
{
    if (name.isEmpty())
        return -1;
    const auto found = std::find_if(m_results.cbegin(), m_results.cend(),
                                    [&](const Icon& icon) { return icon.id() == name; });
    return found == m_results.cend() ? -1 : found - m_results.cbegin();
}

bool PickerModel::assignSelection(const QString& name, qsizetype at)
{
    if (name == m_selectedID && (at < 0 || at == m_selectedIndex))
        return false;
    const bool changed = name != m_selectedID;
    m_selectedID = name;
    // Where the caller knows the place, a name listed twice (a favorite
    // imported twice) is not pulled back to its first place.
    const bool known = at >= 0 && at < m_results.size() && m_results.at(at).id() == name;
    m_selectedIndex = known ? at : indexOf(name);
    return changed;
}

void PickerModel::bumpScrollRequest()
{
    ++m_scrollRequest;
    emit scrollRequestChanged();
}

PickerModel::Derived PickerModel::derived() const
{
    Derived now;
    now.isSearching = isSearching();
    now.current = current();
    now.currentExport = now.current.isNull() ? std::nullopt : std::optional(exportOf(now.current));
    now.strokeEnabled = strokeEnabled();
    now.countLabel = countLabel();
    now.placeholder = placeholder();
    now.swatches = swatches();
    now.selectedIndex = m_selectedIndex;
    return now;
}

void PickerModel::announceDerived()
{
    Derived now = derived();
    const Derived before = std::exchange(m_announced, now);
    if (now.isSearching != before.isSearching)
        emit isSearchingChanged();
    if (!sameIcon(now.current, before.current))
        emit currentChanged();
    if (!sameExport(now.currentExport, before.currentExport))
        emit currentExportChanged();
    if (now.strokeEnabled != before.strokeEnabled)
        emit strokeEnabledChanged();
    if (now.countLabel != before.countLabel)
        emit countLabelChanged();
    if (now.placeholder != before.placeholder)
        emit placeholderChanged();
    if (now.swatches != before.swatches)
        emit swatchesChanged();
    if (now.selectedIndex != before.selectedIndex)
        emit selectedIndexChanged();
}
