#include "RsvgReference.h"

#include "Export/SnippetBuilder.h"

#include <QProcess>
#include <QStandardPaths>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace RsvgReference {

QString program()
{
    return QStandardPaths::findExecutable(u"rsvg-convert"_s);
}

QList<QImage> renderTexts(const QStringList& svgs, int cell, int scale, QString* error)
{
    if (svgs.isEmpty())
        return {};
    const auto columns = static_cast<int>(std::ceil(std::sqrt(svgs.size())));
    const auto rows = static_cast<int>((svgs.size() + columns - 1) / columns);

    // A nested <svg> clips to its own viewport, as the edge of a separate
    // image would.
    QString sheet =
        uR"(<svg xmlns="http://www.w3.org/2000/svg" width="%1" height="%2">)"_s.arg(columns * cell)
            .arg(rows * cell);
    for (qsizetype i = 0; i < svgs.size(); ++i) {
        const QString position =
            uR"(<svg x="%1" y="%2")"_s.arg(i % columns * cell).arg(i / columns * cell);
        sheet += QString(svgs[i]).replace(0, 4, position);
    }
    sheet += u"</svg>"_s;

    QProcess process;
    process.start(program(), {u"--zoom"_s, QString::number(scale), u"--format"_s, u"png"_s});
    process.write(sheet.toUtf8());
    process.closeWriteChannel();
    const bool finished = process.waitForFinished(300'000);
    const QImage image = QImage::fromData(process.readAllStandardOutput(), "PNG");
    if (!finished || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0 ||
        image.isNull()) {
        if (error) {
            *error = u"rsvg-convert failed: "_s + process.errorString() + u' ' +
                     QString::fromLocal8Bit(process.readAllStandardError());
        }
        return {};
    }

    QList<QImage> images;
    images.reserve(svgs.size());
    for (qsizetype i = 0; i < svgs.size(); ++i) {
        images +=
            image.copy(static_cast<int>(i % columns) * cell * scale,
                       static_cast<int>(i / columns) * cell * scale, cell * scale, cell * scale);
    }
    return images;
}

QList<QImage> render(const QList<IconExport>& items, int scale, QString* error)
{
    SnippetBuilder builder;
    builder.classAttribute.clear();
    int cell = 0;
    QStringList svgs;
    for (const IconExport& item : items) {
        cell = std::max(cell, item.size);
        IconExport black = item;
        black.color = u"#000000"_s;
        svgs += builder.svg(black, true);
    }
    QList<QImage> images = renderTexts(svgs, cell, scale, error);
    for (qsizetype i = 0; i < images.size(); ++i) {
        const int side = items[i].size * scale;
        if (images[i].width() != side)
            images[i] = images[i].copy(0, 0, side, side);
    }
    return images;
}

QString inRuns(qsizetype total, qsizetype perRun, int jobs,
               const std::function<QString(qsizetype first, qsizetype count)>& run)
{
    std::atomic<qsizetype> next = 0;
    std::mutex errorLock;
    QString error;
    const auto work = [&] {
        for (qsizetype first = next.fetch_add(perRun); first < total;
             first = next.fetch_add(perRun)) {
            if (QString runError = run(first, std::min(perRun, total - first));
                !runError.isEmpty()) {
                const std::lock_guard lock(errorLock);
                error = std::move(runError);
                return;
            }
        }
    };
    std::vector<std::thread> workers;
    for (int i = 0; i < std::max(1, jobs); ++i)
        workers.emplace_back(work);
    for (std::thread& worker : workers)
        worker.join();
    return error;
}

AlphaDifference alphaDifference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size() || a.isNull())
        return {255, 255};
    const QImage left = a.convertToFormat(QImage::Format_ARGB32);
    const QImage right = b.convertToFormat(QImage::Format_ARGB32);
    qint64 total = 0;
    int max = 0;
    for (int y = 0; y < left.height(); ++y) {
        const auto* l = reinterpret_cast<const QRgb*>(left.constScanLine(y));
        const auto* r = reinterpret_cast<const QRgb*>(right.constScanLine(y));
        for (int x = 0; x < left.width(); ++x) {
            const int difference = std::abs(qAlpha(l[x]) - qAlpha(r[x]));
            total += difference;
            max = std::max(max, difference);
        }
    }
    return {static_cast<double>(total) / (static_cast<double>(left.width()) * left.height()), max};
}

double ink(const QImage& image)
{
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    qint64 total = 0;
    for (int y = 0; y < argb.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(argb.constScanLine(y));
        for (int x = 0; x < argb.width(); ++x)
            total += qAlpha(row[x]);
    }
    return static_cast<double>(total) / 255;
}

} // namespace RsvgReference
