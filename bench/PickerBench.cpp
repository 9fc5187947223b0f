#include "Export/IconCopier.h"
#include "Picker/PickerModel.h"
#include "State/SettingsStore.h"

#include <QHash>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

// Copies nothing and always succeeds, so copy() measures the model alone.
struct NullCopier : IconCopier {
    bool copy(const IconExport&, ExportFormat) override { return true; }
};

// The picker over the shipped catalogue, with a plausible user: a favorite
// every 40 icons and a full recents list.
struct Picker {
    QTemporaryDir dir;
    SettingsStore store{dir.filePath(QStringLiteral("settings.conf"))};
    Preferences prefs{store};
    IconLibrary library{{IconLibrary::shippedFilePath(), {}}};
    UserLibrary user{store, prefs,
                     [this](const QString& name) { return !library.icon(name).isNull(); }};
    NullCopier copier;
    PickerModel model{library, user, prefs, &copier};

    Picker()
    {
        const IconList& icons = library.icons();
        for (qsizetype i = 0; i < icons.size(); i += 40)
            user.toggleFavorite(icons[i].id());
        for (qsizetype i = 0; i < prefs.recentsLimit() && i < icons.size(); ++i) {
            UserLibrary::LastCopy copy;
            copy.name = icons[i * 7 % icons.size()].id();
            user.recordCopy(copy);
        }
    }

    PickerTab largestCategory() const
    {
        QHash<QString, int> sizes;
        for (const Icon& icon : library.icons())
            ++sizes[icon.category()];
        const auto largest = std::max_element(sizes.cbegin(), sizes.cend());
        return PickerTab::ofCategory(largest.key());
    }
};

Picker& picker()
{
    static Picker shared;
    return shared;
}

enum class Tab { all, favorites, recents, largestCategory };

void PickerRefresh(benchmark::State& state, Tab tab, IconStyle style, const char* query)
{
    PickerModel& model = picker().model;
    model.setQuery(QString::fromUtf8(query));
    model.setStyle(style);
    switch (tab) {
    case Tab::all:
        model.setTab(PickerTab::all());
        break;
    case Tab::favorites:
        model.setTab(PickerTab::favorites());
        break;
    case Tab::recents:
        model.setTab(PickerTab::recents());
        break;
    case Tab::largestCategory:
        model.setTab(picker().largestCategory());
        break;
    }
    for (auto _ : state)
        model.refresh(false);
    state.counters["results"] = static_cast<double>(model.results().size());
}
BENCHMARK_CAPTURE(PickerRefresh, all, Tab::all, IconStyle::outline, "")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickerRefresh, all_filled, Tab::all, IconStyle::filled, "")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickerRefresh, all_arrow, Tab::all, IconStyle::outline, "arrow")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickerRefresh, favorites, Tab::favorites, IconStyle::outline, "")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickerRefresh, recents, Tab::recents, IconStyle::outline, "")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PickerRefresh, largest_category, Tab::largestCategory, IconStyle::outline, "")
    ->Unit(benchmark::kMicrosecond);

// Right and back in the middle of the whole catalogue, so every move lands.
void PickerMove(benchmark::State& state)
{
    PickerModel& model = picker().model;
    model.setQuery({});
    model.setStyle(IconStyle::outline);
    model.setTab(PickerTab::all());
    model.setSelectedID(model.results().at(model.results().size() / 2).id());
    int dx = 1;
    for (auto _ : state) {
        model.move(dx, 0);
        dx = -dx;
    }
}
BENCHMARK(PickerMove)->Unit(benchmark::kMicrosecond);

void PickerCopy(benchmark::State& state)
{
    PickerModel& model = picker().model;
    for (auto _ : state)
        benchmark::DoNotOptimize(model.copy());
}
BENCHMARK(PickerCopy)->Unit(benchmark::kMicrosecond);

} // namespace
