// Holds every icon as Pictray draws it against the icon set's own SVG file,
// both drawn by rsvg-convert: our PNG (IconRenderer) and our SVG snippet
// drawn the same way. The measure is the ink difference: the alpha that
// differs, summed, over the ink of the icon set's drawing. A path stroked
// where the icon set fills it (or the reverse) moves it by tens of percent.
//
//   build/dev/tools/compare-icon-set --package DIR [--catalogue FILE] [--scale 2]
//       [--jobs 2] [--top 10] [--limit PERCENT [--allow N]]
//
// DIR is an unpacked @tabler/icons package (icons/outline/*.svg,
// icons/filled/*.svg). With --limit it fails (status 1) when more than N
// drawings (PNG or snippet) differ by more than that percentage; 77 when
// rsvg-convert or the package is missing, so a test run can skip it.
#include "Catalog/CatalogueCodec.h"
#include "Catalog/IconLibrary.h"
#include "Export/IconRenderer.h"
#include "Export/SnippetBuilder.h"
#include "RsvgReference.h"

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int skipped = 77;
constexpr qsizetype cellsPerRun = 200;

struct Result {
    double png = 0;     // ink difference of our PNG, percent
    double snippet = 0; // of our SVG snippet
};

QString label(const IconExport& item)
{
    return item.style == IconStyle::filled ? item.icon.id() + u" (filled)"_s : item.icon.id();
}

double percentOff(const QImage& ours, const QImage& reference)
{
    const auto difference = RsvgReference::alphaDifference(ours, reference);
    const double ink = std::max(1.0, RsvgReference::ink(reference));
    return 100 * difference.mean * reference.width() * reference.height() / 255 / ink;
}

struct Summary {
    double mean = 0;
    qsizetype worst = 0;
};

Summary summarise(const std::vector<Result>& results, double Result::*measure)
{
    Summary summary;
    for (size_t i = 0; i < results.size(); ++i) {
        summary.mean += results[i].*measure;
        if (results[i].*measure > results[static_cast<size_t>(summary.worst)].*measure)
            summary.worst = static_cast<qsizetype>(i);
    }
    summary.mean /= static_cast<double>(std::max<size_t>(1, results.size()));
    return summary;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Pictray's drawing against the icon set's own SVG files"_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"package"_s, u"the unpacked @tabler/icons package"_s, u"folder"_s},
        {u"catalogue"_s, u"a catalogue file instead of the shipped one"_s, u"file"_s},
        {u"jobs"_s, u"rsvg-convert processes at a time"_s, u"n"_s, u"2"_s},
        {u"scale"_s, u"pixels per point"_s, u"scale"_s, u"2"_s},
        {u"top"_s, u"how many of the worst icons to list"_s, u"n"_s, u"10"_s},
        {u"limit"_s, u"fail when more icons than allowed differ by more percent"_s, u"percent"_s},
        {u"allow"_s, u"how many icons may differ by more than the limit"_s, u"n"_s, u"0"_s},
    });
    parser.process(app);
    const int jobs = std::max(1, parser.value(u"jobs"_s).toInt());
    const int scale = std::max(1, parser.value(u"scale"_s).toInt());
    const QDir package(parser.value(u"package"_s));

    if (RsvgReference::program().isEmpty() || !package.exists(u"icons/outline"_s)) {
        std::fprintf(stderr, "rsvg-convert or the icon set's package is missing\n");
        return skipped;
    }
    QString catalogue = parser.value(u"catalogue"_s);
    if (catalogue.isEmpty())
        catalogue = IconLibrary::shippedFilePath();
    const IconLibrary library({catalogue, {}});

    QList<IconExport> items;
    QStringList references;
    qsizetype missing = 0;
    for (const Icon& icon : library.icons()) {
        for (const IconStyle style : allCases<IconStyle>()) {
            if (!icon.has(style))
                continue;
            QFile file(package.filePath(u"icons/%1/%2.svg"_s.arg(rawValue(style), icon.id())));
            if (!file.open(QIODevice::ReadOnly)) {
                ++missing;
                continue;
            }
            items += IconExport{icon, style, 24, 2, u"#000000"_s};
            references += QString::fromUtf8(file.readAll()).trimmed();
        }
    }
    if (items.isEmpty()) {
        std::fprintf(stderr, "no icon of the catalogue is in the package\n");
        return 1;
    }

    QElapsedTimer timer;
    timer.start();
    SnippetBuilder builder;
    builder.classAttribute.clear();
    std::vector<Result> results(static_cast<size_t>(items.size()));
    const QString error = RsvgReference::inRuns(
        items.size(), cellsPerRun, jobs, [&](qsizetype first, qsizetype count) {
            const QList<IconExport> run = items.mid(first, count);
            QStringList snippets;
            for (const IconExport& item : run)
                snippets += builder.svg(item, true);
            QString runError;
            const QList<QImage> theirs =
                RsvgReference::renderTexts(references.mid(first, count), 24, scale, &runError);
            const QList<QImage> ours = RsvgReference::renderTexts(snippets, 24, scale, &runError);
            if (theirs.size() != run.size() || ours.size() != run.size())
                return runError;
            for (qsizetype i = 0; i < run.size(); ++i) {
                IconRenderer::Options options;
                options.style = run[i].style;
                options.scale = scale;
                const QImage png = IconRenderer::bitmap(library, run[i].icon, options);
                results[static_cast<size_t>(first + i)] = {percentOff(png, theirs[i]),
                                                           percentOff(ours[i], theirs[i])};
            }
            return QString();
        });
    if (!error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }

    std::printf("%lld drawings at %dx against the icon set's SVG files in %.1f s (%lld without "
                "a file)\nink difference, mean and worst:\n",
                static_cast<long long>(items.size()), scale, timer.elapsed() / 1000.0,
                static_cast<long long>(missing));
    for (const auto& [name, measure] :
         {std::pair{"PNG", &Result::png}, std::pair{"SVG snippet", &Result::snippet}}) {
        const Summary summary = summarise(results, measure);
        const double worstValue = results[static_cast<size_t>(summary.worst)].*measure;
        std::printf("  %-12s %6.3f %%  %7.3f %% (%s)\n", name, summary.mean, worstValue,
                    qPrintable(label(items[summary.worst])));
    }
    std::vector<qsizetype> order(results.size());
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = static_cast<qsizetype>(i);
    const auto off = [&](qsizetype i) {
        const Result& r = results[static_cast<size_t>(i)];
        return std::max(r.png, r.snippet);
    };
    std::sort(order.begin(), order.end(),
              [&](qsizetype a, qsizetype b) { return off(a) > off(b); });
    const int top = parser.value(u"top"_s).toInt();
    for (qsizetype i = 0; i < std::min<qsizetype>(top, items.size()); ++i) {
        const Result& r = results[static_cast<size_t>(order[static_cast<size_t>(i)])];
        std::printf("  PNG %7.3f %%  snippet %7.3f %%  %s\n", r.png, r.snippet,
                    qPrintable(label(items[order[static_cast<size_t>(i)]])));
    }
    if (parser.isSet(u"limit"_s)) {
        const double limit = parser.value(u"limit"_s).toDouble();
        const auto over = std::count_if(order.cbegin(), order.cend(),
                                        [&](qsizetype i) { return off(i) > limit; });
        std::printf("%lld over %g %%, %s allowed\n", static_cast<long long>(over), limit,
                    qPrintable(parser.value(u"allow"_s)));
        if (over > parser.value(u"allow"_s).toInt())
            return 1;
    }
    return 0;
}
