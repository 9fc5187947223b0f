// Renders every icon of the shipped set in both styles with IconRenderer and
// with rsvg-convert and reports how far the alpha channels are apart. Too slow
// for CI; run it after touching the path parser or the renderer:
//
//   build/dev/tools/compare-rsvg [--jobs 2] [--scale 2] [--stroke 2] [--top 10] [name ...]
#include "Catalog/IconLibrary.h"
#include "Export/IconRenderer.h"
#include "RsvgReference.h"

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// Cells per rsvg-convert run: large enough that starting the process is
// cheap next to drawing, small enough to keep both cores busy to the end.
constexpr qsizetype cellsPerRun = 200;

QString label(const IconExport& item)
{
    return item.style == IconStyle::filled ? item.icon.id() + u" (filled)"_s : item.icon.id();
}

// Both renderings of each item side by side, to see where they part.
void dump(const IconLibrary& library, const QList<IconExport>& items, int scale,
          const QString& folder)
{
    QDir().mkpath(folder);
    const QList<QImage> references = RsvgReference::render(items, scale, nullptr);
    for (qsizetype i = 0; i < references.size(); ++i) {
        IconRenderer::Options options;
        options.style = items[i].style;
        options.stroke = items[i].stroke;
        options.scale = scale;
        const QString base = folder + u'/' + label(items[i]).replace(u' ', u'_');
        IconRenderer::bitmap(library, items[i].icon, options).save(base + u"-ours.png"_s);
        references[i].save(base + u"-rsvg.png"_s);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"IconRenderer against rsvg-convert over the icon set"_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"jobs"_s, u"rsvg-convert processes at a time"_s, u"n"_s, u"2"_s},
        {u"scale"_s, u"pixels per point"_s, u"scale"_s, u"2"_s},
        {u"stroke"_s, u"stroke width in icon units"_s, u"width"_s, u"2"_s},
        {u"top"_s, u"how many of the worst icons to list"_s, u"n"_s, u"10"_s},
        {u"dump"_s, u"write both renderings of the listed icons as PNG into"_s, u"folder"_s},
    });
    parser.addPositionalArgument(u"name"_s, u"only these icons"_s, u"[name...]"_s);
    parser.process(app);
    const int jobs = std::max(1, parser.value(u"jobs"_s).toInt());
    const int scale = std::max(1, parser.value(u"scale"_s).toInt());
    const double stroke = parser.value(u"stroke"_s).toDouble();
    const int top = parser.value(u"top"_s).toInt();

    if (RsvgReference::program().isEmpty()) {
        std::fprintf(stderr, "rsvg-convert is not installed\n");
        return 2;
    }
    const IconLibrary library({IconLibrary::shippedFilePath(), {}});
    const QStringList names = parser.positionalArguments();
    QList<IconExport> items;
    for (const Icon& icon : library.icons()) {
        if (!names.isEmpty() && !names.contains(icon.id()))
            continue;
        for (const IconStyle style : allCases<IconStyle>()) {
            if (icon.has(style))
                items += IconExport{icon, style, 24, stroke, u"#000000"_s};
        }
    }

    QElapsedTimer timer;
    timer.start();
    std::vector<RsvgReference::AlphaDifference> results(static_cast<size_t>(items.size()));
    const QString error = RsvgReference::inRuns(
        items.size(), cellsPerRun, jobs, [&](qsizetype first, qsizetype count) {
            const QList<IconExport> run = items.mid(first, count);
            QString runError;
            const QList<QImage> references = RsvgReference::render(run, scale, &runError);
            if (references.size() != run.size())
                return runError;
            for (qsizetype i = 0; i < run.size(); ++i) {
                IconRenderer::Options options;
                options.style = run[i].style;
                options.stroke = stroke;
                options.scale = scale;
                const QImage ours = IconRenderer::bitmap(library, run[i].icon, options);
                results[static_cast<size_t>(first + i)] =
                    RsvgReference::alphaDifference(ours, references[i]);
            }
            return QString();
        });
    if (!error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    if (items.isEmpty()) {
        std::fprintf(stderr, "no icons to compare\n");
        return 1;
    }

    double meanSum[2] = {0, 0};
    qsizetype count[2] = {0, 0};
    std::vector<qsizetype> order(results.size());
    for (size_t i = 0; i < results.size(); ++i) {
        const auto style = static_cast<size_t>(items[static_cast<qsizetype>(i)].style);
        meanSum[style] += results[i].mean;
        ++count[style];
        order[i] = static_cast<qsizetype>(i);
    }
    std::sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
        const auto& ra = results[static_cast<size_t>(a)];
        const auto& rb = results[static_cast<size_t>(b)];
        return ra.max != rb.max ? ra.max > rb.max : ra.mean > rb.mean;
    });
    const auto worstMean =
        std::max_element(results.cbegin(), results.cend(),
                         [](const auto& a, const auto& b) { return a.mean < b.mean; }) -
        results.cbegin();

    std::printf("%lld renderings (%lld outline, %lld filled) at %dx, stroke %g, in %.1f s\n",
                static_cast<long long>(items.size()), static_cast<long long>(count[0]),
                static_cast<long long>(count[1]), scale, stroke, timer.elapsed() / 1000.0);
    std::printf("mean alpha difference per pixel: %.3f / 255 (outline %.3f, filled %.3f)\n",
                (meanSum[0] + meanSum[1]) / static_cast<double>(items.size()),
                count[0] ? meanSum[0] / static_cast<double>(count[0]) : 0.0,
                count[1] ? meanSum[1] / static_cast<double>(count[1]) : 0.0);
    const auto& worst = results[static_cast<size_t>(order.front())];
    std::printf("worst pixel: %d / 255 in %s\n", worst.max,
                qPrintable(label(items[order.front()])));
    std::printf("worst mean: %.3f / 255 in %s\n", results[static_cast<size_t>(worstMean)].mean,
                qPrintable(label(items[worstMean])));
    const int limits[] = {8, 16, 32, 64, 128, 255};
    std::printf("icons by worst pixel:");
    for (const int limit : limits) {
        const auto within = std::count_if(results.cbegin(), results.cend(),
                                          [limit](const auto& r) { return r.max <= limit; });
        std::printf(" <=%d: %lld", limit, static_cast<long long>(within));
    }
    std::printf("\n");
    QList<IconExport> listed;
    for (qsizetype i = 0; i < std::min<qsizetype>(top, items.size()); ++i) {
        const auto& r = results[static_cast<size_t>(order[static_cast<size_t>(i)])];
        listed += items[order[static_cast<size_t>(i)]];
        std::printf("  %3d  mean %.3f  %s\n", r.max, r.mean, qPrintable(label(listed.last())));
    }
    if (const QString folder = parser.value(u"dump"_s); !folder.isEmpty())
        dump(library, listed, scale, folder);
    return 0;
}
