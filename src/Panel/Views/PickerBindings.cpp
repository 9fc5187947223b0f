#include "PickerBindings.h"

#include "Base/AppConfig.h"
#include "Base/PlatformWords.h"
#include "Picker/PickerModel.h"

namespace {

constexpr int nearMatchLimit = 5;

} // namespace

PickerBindings::PickerBindings(QObject* parent) : QObject(parent), m_results(this)
{
    connect(this, &PickerBindings::formatsChanged, this, &PickerBindings::refreshFormatLists);
}

void PickerBindings::setModel(PickerModel* model)
{
    if (model == m_model)
        return;
    if (m_model) {
        disconnect(m_model, nullptr, this, nullptr);
        disconnect(m_model->user(), nullptr, this, nullptr);
        disconnect(m_model->prefs(), nullptr, this, nullptr);
    }
    m_model = model;
    m_results.setSource(model);
    if (model) {
        const auto search = [this] { emit searchTextsChanged(); };
        const auto inspector = [this] { emit inspectorChanged(); };
        const auto formats = [this] { emit formatsChanged(); };
        connect(model, &PickerModel::styleChanged, this, &PickerBindings::styleChanged);
        connect(model, &PickerModel::tabsChanged, this, &PickerBindings::tabsChanged);
        connect(model, &PickerModel::tabsChanged, this, &PickerBindings::tabIndexChanged);
        connect(model, &PickerModel::tabChanged, this, &PickerBindings::tabIndexChanged);
        for (const auto signal : {&PickerModel::queryChanged, &PickerModel::tabChanged,
                                  &PickerModel::styleChanged, &PickerModel::resultsChanged})
            connect(model, signal, this, search);
        for (const auto signal :
             {&PickerModel::currentChanged, &PickerModel::sizeChanged, &PickerModel::strokeChanged,
              &PickerModel::swatchesChanged, &PickerModel::changed})
            connect(model, signal, this, inspector);
        // Settings (the React language, the PNG scales) reach the views through changed().
        for (const auto signal : {&PickerModel::formatChanged, &PickerModel::changed})
            connect(model, signal, this, formats);
        connect(model->user(), &UserLibrary::favoritesChanged, this, inspector);
        connect(model->library(), &IconLibrary::catalogueChanged, this, search);
        connect(model, &QObject::destroyed, this, [this] { setModel(nullptr); });
    }
    emit modelChanged();
    emit styleChanged();
    emit tabsChanged();
    emit tabIndexChanged();
    emit searchTextsChanged();
    emit inspectorChanged();
    emit formatsChanged();
}

bool PickerBindings::filled() const
{
    return m_model && m_model->style() == IconStyle::filled;
}

void PickerBindings::setFilled(bool filled)
{
    if (m_model)
        m_model->setStyle(filled ? IconStyle::filled : IconStyle::outline);
}

QStringList PickerBindings::tabTitles() const
{
    QStringList titles;
    if (m_model) {
        for (const PickerTab& tab : m_model->tabs())
            titles.append(tab.title());
    }
    return titles;
}

QStringList PickerBindings::tabIcons() const
{
    QStringList icons;
    if (m_model) {
        for (const PickerTab& tab : m_model->tabs()) {
            switch (tab.kind()) {
            case PickerTab::Kind::all:
                icons.append(QStringLiteral("layout-grid"));
                break;
            case PickerTab::Kind::favorites:
                icons.append(QStringLiteral("heart"));
                break;
            case PickerTab::Kind::recents:
                icons.append(QStringLiteral("clock"));
                break;
            case PickerTab::Kind::category:
                icons.append(QString());
                break;
            }
        }
    }
    return icons;
}

int PickerBindings::tabIndex() const
{
    return m_model ? static_cast<int>(m_model->tabs().indexOf(m_model->tab())) : -1;
}

void PickerBindings::setTabIndex(int index)
{
    if (m_model && index >= 0 && index < m_model->tabs().size())
        m_model->setTab(m_model->tabs().at(index));
}

bool PickerBindings::showsEmptyResults() const
{
    return m_model && m_model->isSearching() && m_model->results().isEmpty();
}

QString PickerBindings::emptyGridText() const
{
    if (!m_model)
        return {};
    const PickerTab tab = m_model->tab();
    if (tab.is(PickerTab::Kind::recents))
        return QStringLiteral("Icons you copy show up here.");
    if (tab.is(PickerTab::Kind::favorites))
        return QStringLiteral("No favorites yet. Press ") + favoriteKeys() +
               QStringLiteral(" on any icon to add it.");
    if (m_model->style() == IconStyle::filled)
        return QStringLiteral("No filled icons in this collection.");
    return QStringLiteral("No icons here.");
}

QString PickerBindings::emptyResultsTitle() const
{
    if (!m_model)
        return {};
    return u"No icons for \u201C"_qs + m_model->query() + u"\u201D"_qs;
}

QString PickerBindings::emptyResultsHint() const
{
    if (!m_model)
        return {};
    QString hint =
        QStringLiteral("Search matches names and tags. Try a shorter word or a synonym.");
    if (!m_model->tab().is(PickerTab::Kind::all))
        hint += u" You\u2019re searching in "_qs + m_model->tab().title() + u" only."_qs;
    if (m_model->style() == IconStyle::filled)
        hint += QStringLiteral(" Filled has fewer icons than Outline.");
    return hint;
}

void PickerBindings::computeNearMatches() const
{
    if (!showsEmptyResults()) {
        m_nearQuery.clear();
        m_nearWords.clear();
        m_nearNames.clear();
        m_typoNames.clear();
        return;
    }
    if (m_model->query() == m_nearQuery)
        return;
    m_nearQuery = m_model->query();
    const IconLibrary& library = *m_model->library();
    m_typoNames.clear();
    for (const Icon& icon : library.typoMatches(m_nearQuery, nearMatchLimit))
        m_typoNames.append(icon.id());
    const IconSearch::NearMatches near = library.nearMatches(m_nearQuery, nearMatchLimit);
    m_nearWords = near.words;
    m_nearNames.clear();
    for (const Icon& icon : near.icons) {
        if (!m_typoNames.contains(icon.id()))
            m_nearNames.append(icon.id());
    }
}

QStringList PickerBindings::didYouMeanNames() const
{
    computeNearMatches();
    return m_typoNames;
}

QString PickerBindings::nearMatchLine() const
{
    computeNearMatches();
    // Its icons may all stand in "Did you mean" already: no line over nothing.
    if (m_nearWords.isEmpty() || (m_nearNames.isEmpty() && !m_typoNames.isEmpty()))
        return {};
    QStringList quoted;
    for (const QString& word : m_nearWords)
        quoted.append(u'\u201C' + word + u'\u201D');
    return QStringLiteral("Close by tag: ") + quoted.join(QStringLiteral(", "));
}

QStringList PickerBindings::nearMatchNames() const
{
    computeNearMatches();
    return m_nearNames;
}

QString PickerBindings::iconCountLine() const
{
    if (!m_model)
        return {};
    return IconLibrary::number(m_model->library()->iconCount()) + u" icons \u00B7 works offline"_qs;
}

bool PickerBindings::currentIsFavorite() const
{
    return m_model && m_model->user()->isFavorite(m_model->currentName());
}

QString PickerBindings::favoriteHelp() const
{
    const QString action = currentIsFavorite() ? QStringLiteral("Remove from Favorites (")
                                               : QStringLiteral("Add to Favorites (");
    return action + favoriteKeys() + u')';
}

QString PickerBindings::currentTagLine() const
{
    if (!m_model)
        return {};
    const Icon icon = m_model->current();
    return icon.isNull() ? QString() : icon.tagLine();
}

QString PickerBindings::sizeLabel() const
{
    return m_model ? QString::number(m_model->size()) + QStringLiteral(" pixels") : QString();
}

QString PickerBindings::strokeLabel() const
{
    return m_model ? QString::number(m_model->stroke(), 'g', 6) : QString();
}

QStringList PickerBindings::swatchValues() const
{
    QStringList values;
    if (m_model) {
        for (const ColorSwatch& swatch : m_model->swatches())
            values.append(swatch.value);
    }
    return values;
}

QStringList PickerBindings::swatchLabels() const
{
    QStringList labels;
    if (m_model) {
        for (const ColorSwatch& swatch : m_model->swatches())
            labels.append(swatch.label);
    }
    return labels;
}

OfferedFormats PickerBindings::offeredFormats() const
{
    return m_model ? OfferedFormats::from(*m_model->prefs(), hostRendition()) : OfferedFormats();
}

void PickerBindings::refreshFormatLists()
{
    const OfferedFormats offered = offeredFormats();
    m_codeFormats.setEntries(offered.code);
    m_imageFormats.setEntries(offered.image);
}

int PickerBindings::formatIndex() const
{
    return m_model ? static_cast<int>(offeredFormats().all().indexOf(m_model->format())) : -1;
}

void PickerBindings::setFormatIndex(int index)
{
    const QList<ExportFormat> formats = offeredFormats().all();
    if (index >= 0 && index < formats.size())
        m_model->setFormat(formats.at(index));
}

QString PickerBindings::formatLabel() const
{
    return m_model ? Formats::label(m_model->format(), m_model->prefs()->reactLanguage())
                   : QString();
}

QString PickerBindings::copyButtonTitle() const
{
    return QStringLiteral("Copy ") + formatLabel();
}

QString PickerBindings::searchAllKeys()
{
    return QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A).toString(QKeySequence::NativeText);
}

QString PickerBindings::formatMenuKeys()
{
    return QKeySequence(Qt::CTRL | Qt::Key_Return)
        .toString(QKeySequence::NativeText)
        .replace(QStringLiteral("Return"), QStringLiteral("\u21B5"));
}

QString PickerBindings::formatKeys()
{
    const QList<ExportFormat> code = Formats::codeFormats();
    return OfferedFormats::shortcutFor(code.first(), hostRendition())
               .toString(QKeySequence::NativeText) +
           QStringLiteral("\u2026") + QString::number(code.size());
}

QString PickerBindings::favoriteKeys(QKeySequence::SequenceFormat format)
{
    return QKeySequence(Qt::CTRL | Qt::Key_D).toString(format);
}

QString PickerBindings::dragHint()
{
    return PlatformWords::text(PlatformWords::Text::dragInto, hostRendition());
}

QString PickerBindings::dragAnyHint()
{
    return PlatformWords::text(PlatformWords::Text::dragAnyInto, hostRendition());
}

QUrl PickerBindings::requestIconUrl()
{
    return AppConfig::iconRequestURL();
}

void PickerBindings::toggleFavorite()
{
    if (!m_model)
        return;
    const QString name = m_model->currentName();
    if (name.isEmpty())
        return;
    m_model->user()->toggleFavorite(name);
    m_model->announceChange();
}

QString PickerBindings::cellHelp(const QString& name) const
{
    if (!m_model)
        return name;
    const Icon icon = m_model->library()->icon(name);
    return icon.isNull() ? name : name + u'\n' + icon.tagLine();
}
