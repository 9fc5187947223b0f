#include "Catalog/IconLibrary.h"
#include "Export/IconRenderer.h"

#include <QBuffer>
#include <benchmark/benchmark.h>

namespace {

const IconLibrary& library()
{
    static const IconLibrary shipped({IconLibrary::shippedFilePath(), {}});
    return shipped;
}

IconRenderer::Options options(IconStyle style, double pointSize, double scale)
{
    IconRenderer::Options options;
    options.style = style;
    options.pointSize = pointSize;
    options.scale = scale;
    return options;
}

// One 24-point icon at 2x from the cached path (built by the first run).
void iconRenderBitmap(benchmark::State& state, const char* name, IconStyle style)
{
    const Icon icon = library().icon(QString::fromLatin1(name));
    const IconRenderer::Options at2x = options(style, 24, 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(IconRenderer::bitmap(library(), icon, at2x));
}
BENCHMARK_CAPTURE(iconRenderBitmap, home, "home", IconStyle::outline)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(iconRenderBitmap, settings, "settings", IconStyle::outline)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(iconRenderBitmap, dialpad, "dialpad", IconStyle::outline)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(iconRenderBitmap, home_filled, "home", IconStyle::filled)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(iconRenderBitmap, settings_filled, "settings", IconStyle::filled)
    ->Unit(benchmark::kMicrosecond);

// What a PNG copy of a 24-point icon at 2x costs: render and encode.
void iconRenderPNG(benchmark::State& state, const char* name)
{
    const Icon icon = library().icon(QString::fromLatin1(name));
    const IconRenderer::Options at2x = options(IconStyle::outline, 24, 2);
    qsizetype bytes = 0;
    for (auto _ : state)
        bytes = IconRenderer::encodePNG(IconRenderer::bitmap(library(), icon, at2x)).size();
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK_CAPTURE(iconRenderPNG, home, "home")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(iconRenderPNG, settings, "settings")->Unit(benchmark::kMicrosecond);

// The choice behind encodePNG: Qt's PNG quality (-1: Qt's default, zlib level
// 6; otherwise level (100 - quality) * 9 / 91) against time and bytes, for the
// settings icon at 24 points @2x and at 128 points @3x.
void iconRenderPNGQuality(benchmark::State& state)
{
    const auto quality = static_cast<int>(state.range(0));
    const QImage image =
        IconRenderer::bitmap(library(), library().icon(u"settings"),
                             options(IconStyle::outline, static_cast<double>(state.range(1)),
                                     static_cast<double>(state.range(2))));
    qsizetype bytes = 0;
    for (auto _ : state) {
        QByteArray data;
        QBuffer buffer(&data);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG", quality);
        bytes = data.size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(iconRenderPNGQuality)
    ->ArgNames({"quality", "pt", "scale"})
    ->ArgsProduct({{-1, 100, 85, 75, 50, 0}, {24}, {2}})
    ->ArgsProduct({{-1, 100, 85, 75, 50, 0}, {128}, {3}})
    ->Unit(benchmark::kMicrosecond);

// The same choice over every outline icon of the set, 24 points @2x: what the
// whole set costs to encode (Time / images) and how large its files are.
void iconRenderPNGQualityWholeSet(benchmark::State& state)
{
    const auto quality = static_cast<int>(state.range(0));
    QList<QImage> images;
    for (const Icon& icon : library().icons())
        images += IconRenderer::bitmap(library(), icon, options(IconStyle::outline, 24, 2));
    qsizetype bytes = 0;
    for (auto _ : state) {
        bytes = 0;
        for (const QImage& image : images) {
            QByteArray data;
            QBuffer buffer(&data);
            buffer.open(QIODevice::WriteOnly);
            image.save(&buffer, "PNG", quality);
            bytes += data.size();
        }
    }
    state.counters["images"] = static_cast<double>(images.size());
    state.counters["mean_bytes"] = static_cast<double>(bytes) / static_cast<double>(images.size());
}
BENCHMARK(iconRenderPNGQualityWholeSet)
    ->ArgName("quality")
    ->Arg(-1)
    ->Arg(85)
    ->Arg(75)
    ->Arg(50)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

// Every icon of the set in every style it has, 24 points @2x.
void iconRenderWholeSet(benchmark::State& state)
{
    const IconList& icons = library().icons();
    qsizetype images = 0;
    for (auto _ : state) {
        images = 0;
        for (const Icon& icon : icons) {
            for (const IconStyle style : allCases<IconStyle>()) {
                if (!icon.has(style))
                    continue;
                benchmark::DoNotOptimize(
                    IconRenderer::bitmap(library(), icon, options(style, 24, 2)));
                ++images;
            }
        }
    }
    state.counters["images"] = static_cast<double>(images);
}
BENCHMARK(iconRenderWholeSet)->Unit(benchmark::kMillisecond);

// The tray menu's images: 16 points at 1x and 2x, made into a QIcon.
void iconRenderTemplateImage(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(IconRenderer::templateImage(library(), u"settings", 16, 1.5));
}
BENCHMARK(iconRenderTemplateImage)->Unit(benchmark::kMicrosecond);

} // namespace
