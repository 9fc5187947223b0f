#include "Catalog/CatalogueCodec.h"
#include "Catalog/IconLibrary.h"
#include "Geometry/SVGPath.h"

#include <QFile>
#include <benchmark/benchmark.h>

namespace {

const IconLibrary& library()
{
    static const IconLibrary shipped({IconLibrary::shippedFilePath(), {}});
    return shipped;
}

// Read, decode, build every icon and the name index.
void loadShippedCatalogue(benchmark::State& state)
{
    for (auto _ : state) {
        auto loaded =
            std::make_unique<IconLibrary>(IconLibrary::Sources{IconLibrary::shippedFilePath(), {}});
        benchmark::DoNotOptimize(loaded->iconCount());
        // The program never unloads a catalogue; freeing it is not part of loading.
        state.PauseTiming();
        loaded.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(loadShippedCatalogue)->Unit(benchmark::kMillisecond);

// What loading costs a downloaded catalogue, which only comes as JSON; the
// shipped one above is read in its compiled form.
void decodeJsonCatalogue(benchmark::State& state)
{
    QFile file(QStringLiteral(":/tabler-icons.json"));
    file.open(QIODevice::ReadOnly);
    const QByteArray json = file.readAll();
    for (auto _ : state) {
        auto decoded = CatalogueCodec::decode(json);
        benchmark::DoNotOptimize(decoded->icons.size());
        state.PauseTiming();
        decoded.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(decodeJsonCatalogue)->Unit(benchmark::kMillisecond);

void searchWholeCatalogue(benchmark::State& state, const char* query)
{
    const QString text = QString::fromUtf8(query);
    const IconList& icons = library().icons();
    qsizetype found = 0;
    for (auto _ : state)
        found = library().search(text, icons).size();
    state.counters["results"] = static_cast<double>(found);
}
BENCHMARK_CAPTURE(searchWholeCatalogue, a, "a")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchWholeCatalogue, ar, "ar")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchWholeCatalogue, arrow, "arrow")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchWholeCatalogue, arrow_left, "arrow left")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchWholeCatalogue, home, "home")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchWholeCatalogue, zzz, "zzz")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(searchWholeCatalogue, settings_gear, "settings gear")
    ->Unit(benchmark::kMicrosecond);

void nearMatches(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(library().nearMatches(u"umbrellas zebras", 5));
}
BENCHMARK(nearMatches)->Unit(benchmark::kMicrosecond);

// The typo pass over the whole catalogue, its index built beforehand.
void typoMatches(benchmark::State& state, const char* query)
{
    const QString text = QString::fromUtf8(query);
    const qsizetype found = library().typoMatches(text, 5).size();
    for (auto _ : state)
        benchmark::DoNotOptimize(library().typoMatches(text, 5));
    state.counters["results"] = static_cast<double>(found);
}
BENCHMARK_CAPTURE(typoMatches, arow, "arow")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(typoMatches, calender, "calender")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(typoMatches, arow_left, "arow-left")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(typoMatches, brightnes_half, "brightnes halff")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(typoMatches, long_name, "device-desktop-analytcs")->Unit(benchmark::kMicrosecond);

// Every path string of every icon, both styles, into painter paths.
void parseEveryPath(benchmark::State& state)
{
    qsizetype strings = 0;
    for (auto _ : state) {
        strings = 0;
        for (const Icon& icon : library().icons()) {
            for (const IconStyle style : allCases<IconStyle>()) {
                const auto paths = icon.paths(style);
                if (!paths)
                    continue;
                QPainterPath path;
                for (const QByteArray& d : *paths)
                    SVGPath::append(d, path);
                strings += paths->size();
                benchmark::DoNotOptimize(path.elementCount());
            }
        }
    }
    state.counters["strings"] = static_cast<double>(strings);
}
BENCHMARK(parseEveryPath)->Unit(benchmark::kMillisecond);

} // namespace
