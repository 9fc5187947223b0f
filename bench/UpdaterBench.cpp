#include "Catalog/IconLibrary.h"
#include "Catalog/IconUpdater.h"
#include "FixtureHttpServer.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

// The three files of a release as large as the real one, rebuilt from the
// shipped catalogue.
struct ReleaseFiles {
    QByteArray metadata, outline, filled;
};

QJsonArray pathNodes(const PathList& paths)
{
    QJsonArray nodes;
    for (const QByteArray& d : paths)
        nodes.append(QJsonArray{QStringLiteral("path"),
                                QJsonObject{{QStringLiteral("d"), QString::fromUtf8(d)}}});
    return nodes;
}

const ReleaseFiles& realSizeRelease()
{
    static const ReleaseFiles files = [] {
        const IconLibrary shipped({IconLibrary::shippedFilePath(), {}});
        QJsonObject metadata, outline, filled;
        for (const Icon& icon : shipped.icons()) {
            metadata.insert(icon.id(), QJsonObject{{QStringLiteral("category"), icon.category()},
                                                   {QStringLiteral("tags"),
                                                    QJsonArray::fromStringList(icon.tags())}});
            if (icon.outline())
                outline.insert(icon.id(), pathNodes(*icon.outline()));
            if (icon.filled())
                filled.insert(icon.id(), pathNodes(*icon.filled()));
        }
        const auto compact = [](const QJsonObject& object) {
            return QJsonDocument(object).toJson(QJsonDocument::Compact);
        };
        return ReleaseFiles{compact(metadata), compact(outline), compact(filled)};
    }();
    return files;
}

// One update from an up-to-date answer to the installed release, against a
// local server; a 1 ms timer on the main thread notes the longest time it
// had to wait for its turn (the longest stall, in milliseconds).
void Updater_mainThreadStall(benchmark::State& state)
{
    const ReleaseFiles& release = realSizeRelease();
    qint64 longestStall = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir dir;
        FixtureHttpServer server;
        const QString base = QStringLiteral("/npm/@tabler/icons@99.0.0/");
        server.serve(QStringLiteral("/latest"), QByteArray(R"({"version": "99.0.0"})"));
        server.serve(base + QStringLiteral("icons.json"), release.metadata);
        server.serve(base + QStringLiteral("tabler-nodes-outline.json"), release.outline);
        server.serve(base + QStringLiteral("tabler-nodes-filled.json"), release.filled);
        qputenv("PICTRAY_LATEST_URL", server.url(QStringLiteral("/latest")).toEncoded());
        qputenv("PICTRAY_CDN_URL", server.url().toEncoded());
        IconLibrary library({{}, dir.filePath(QStringLiteral("tabler-icons.json"))});
        IconUpdater updater(library);
        QEventLoop loop;
        QObject::connect(&updater, &IconUpdater::stateChanged, &loop, [&] {
            if (!updater.isBusy())
                loop.quit();
        });
        QElapsedTimer clock;
        qint64 lastTick = 0;
        QTimer ticks;
        ticks.setTimerType(Qt::PreciseTimer);
        ticks.setInterval(1);
        QObject::connect(&ticks, &QTimer::timeout, &loop, [&] {
            const qint64 now = clock.elapsed();
            longestStall = std::max(longestStall, now - lastTick);
            lastTick = now;
        });
        state.ResumeTiming();

        clock.start();
        ticks.start();
        updater.checkForNewIcons();
        loop.exec();
        longestStall = std::max(longestStall, clock.elapsed() - lastTick);

        state.PauseTiming();
        if (updater.state().kind != IconUpdater::State::Kind::updated)
            state.SkipWithError("the update did not install");
        state.ResumeTiming();
    }
    state.counters["longestStallMs"] = static_cast<double>(longestStall);
}
BENCHMARK(Updater_mainThreadStall)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
