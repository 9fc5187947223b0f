// The real picker views in the panel window: a keystroke until the grid
// shows the new results, the panel's first and second show, scrolling the
// whole catalogue, and the memory of a shown panel. Each time runs to the
// window's next rendered frame.
//
// The software scene graph unless QT_QUICK_BACKEND or QSG_RHI_BACKEND asks
// for another, as in the tray program. For OpenGL under Xvfb:
//   QSG_RHI_BACKEND=opengl QT_QPA_PLATFORM=xcb xvfb-run -a pictray-bench --benchmark_filter=Views_
#include "Panel/PickerController.h"
#include "Panel/Views/PictrayQml.h"
#include "PickerFixture.h"
#include "QuickItems.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <memory>
#include <utility>

namespace {

void chooseSceneGraph()
{
    static bool chosen = false;
    if (std::exchange(chosen, true))
        return;
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND") &&
        qEnvironmentVariableIsEmpty("QSG_RHI_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

// The picker over the shipped catalogue, its panel made ahead as the tray
// program makes it.
struct Views : PickerFixture {
    PickerController controller{*model, prefs, *user, *copy, targets};

    Views()
    {
        prefs.setPickerPosition(PickerPosition::centered);
        controller.setEngineSetup(
            [this](QQmlEngine& engine) { registerPictrayQml(engine, *library); });
        controller.preparePanel();
        if (!controller.panel())
            qFatal("the panel was not made");
    }
};

// Milliseconds from `action` until the window's next frame is on screen;
// negative when none came within 5 s.
template <typename Action> double msUntilNextFrame(QQuickWindow& window, Action action)
{
    QEventLoop loop;
    QElapsedTimer clock;
    std::atomic<qint64> swappedAt{-1};
    // Direct: with a threaded render loop the signal comes from the render
    // thread, and the time is taken there.
    const QMetaObject::Connection swapped = QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [&] {
            if (swappedAt.load() < 0)
                swappedAt = clock.nsecsElapsed();
            loop.exit(0);
        },
        Qt::DirectConnection);
    QTimer::singleShot(5000, &loop, [&loop] { loop.exit(1); });
    clock.start();
    action();
    // A frame rendered inside `action` (an expose renders at once) counts too.
    const bool rendered = swappedAt.load() >= 0 || loop.exec() == 0;
    QObject::disconnect(swapped);
    return rendered ? double(swappedAt.load()) / 1e6 : -1;
}

// Lets deferred deletions and queued calls run, outside any measurement.
void drain()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// One panel for the keystroke and scrolling runs, shown. Never deleted: it
// would outlive the application object, which Qt objects must not.
Views& shownViews()
{
    static Views* views = nullptr;
    if (!views) {
        chooseSceneGraph();
        views = new Views;
    }
    // Shown again when another benchmark's panel took the focus and so
    // closed this one.
    if (!views->controller.isVisible()) {
        if (msUntilNextFrame(*views->controller.panel(), [&] { views->controller.show(); }) < 0)
            qFatal("the panel showed no frame");
        drain();
    }
    return *views;
}

double residentMiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').constFirst().toDouble() / 1024;
    }
    return -1;
}

// Typing "arrow left" one key at a time, then clearing the field and a
// query that finds nothing; each step starts from the one before it.
const QStringList& typedQueries()
{
    static const QStringList queries = [] {
        QStringList typed;
        const QString word = QStringLiteral("arrow left");
        for (qsizetype i = 1; i <= word.size(); ++i)
            typed.append(word.left(i));
        typed.append(QString());
        typed.append(QStringLiteral("zzzz"));
        return typed;
    }();
    return queries;
}

void Views_keystroke(benchmark::State& state, int step)
{
    Views& views = shownViews();
    QQuickWindow& panel = *views.controller.panel();
    const QString query = typedQueries().at(step);
    const QString before = step == 0 ? QString() : typedQueries().at(step - 1);
    double worst = 0;
    for (auto _ : state) {
        if (views.model->query() != before)
            msUntilNextFrame(panel, [&] { views.model->setQuery(before); });
        drain();
        const double ms = msUntilNextFrame(panel, [&] { views.model->setQuery(query); });
        if (ms < 0) {
            state.SkipWithError("no frame within 5 s");
            break;
        }
        state.SetIterationTime(ms / 1000);
        worst = std::max(worst, ms);
    }
    state.counters["worst_ms"] = worst;
    state.counters["results"] = views.model->resultCount();
}

const bool keystrokesRegistered = [] {
    for (int step = 0; step < typedQueries().size(); ++step) {
        const QString query = typedQueries().at(step);
        const std::string name = "Views_keystroke/\"" + query.toStdString() + "\"";
        benchmark::RegisterBenchmark(name.c_str(), Views_keystroke, step)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(10);
    }
    return true;
}();

// Each iteration makes a new panel ahead (not timed), then shows it: the
// time is the first show; the second show is a counter.
void Views_show(benchmark::State& state)
{
    chooseSceneGraph();
    double second = 0;
    for (auto _ : state) {
        auto views = std::make_unique<Views>();
        drain();
        QQuickWindow& panel = *views->controller.panel();
        const double first = msUntilNextFrame(panel, [&] { views->controller.show(); });
        drain();
        views->controller.hide();
        drain();
        const double again = msUntilNextFrame(panel, [&] { views->controller.show(); });
        if (first < 0 || again < 0) {
            state.SkipWithError("no frame within 5 s");
            break;
        }
        state.SetIterationTime(first / 1000);
        second += again;
    }
    state.counters["second_show_ms"] = second / double(std::max<int64_t>(1, state.iterations()));
}
BENCHMARK(Views_show)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

// Scrolls the full grid from top to bottom by `step` pixels a frame; the
// time is the mean frame, the worst a counter.
void Views_scroll(benchmark::State& state)
{
    Views& views = shownViews();
    QQuickWindow& panel = *views.controller.panel();
    if (!views.model->query().isEmpty())
        msUntilNextFrame(panel, [&] { views.model->setQuery(QString()); });
    drain();
    QQuickItem* grid = findItem(panel.contentItem(), QStringLiteral("iconGrid"));
    if (!grid) {
        state.SkipWithError("no grid");
        return;
    }
    const double step = double(state.range(0));
    double worst = 0;
    int64_t frames = 0;
    for (auto _ : state) {
        const double top =
            grid->property("originY").toDouble() - grid->property("topMargin").toDouble();
        const double bottom = grid->property("originY").toDouble() +
                              grid->property("contentHeight").toDouble() +
                              grid->property("bottomMargin").toDouble() - grid->height();
        grid->setProperty("contentY", top);
        drain();
        double total = 0;
        int count = 0;
        for (double y = top; y < bottom;) {
            y = std::min(y + step, bottom);
            const double ms = msUntilNextFrame(panel, [&] { grid->setProperty("contentY", y); });
            if (ms < 0) {
                state.SkipWithError("no frame within 5 s");
                return;
            }
            total += ms;
            worst = std::max(worst, ms);
            ++count;
        }
        state.SetIterationTime(total / count / 1000);
        frames += count;
    }
    state.counters["worst_ms"] = worst;
    state.counters["frames"] = double(frames) / double(std::max<int64_t>(1, state.iterations()));
}
BENCHMARK(Views_scroll)
    ->Arg(62)  // a row a frame
    ->Arg(310) // five rows a frame: a fast flick
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(2);

// Resident memory at start and once the panel was made and shown. Meaningful
// when run alone: --benchmark_filter=Views_memory.
void Views_memory(benchmark::State& state)
{
    const double start = residentMiB();
    for (auto _ : state)
        benchmark::DoNotOptimize(&shownViews());
    state.counters["rss_start_mib"] = start;
    state.counters["rss_shown_mib"] = residentMiB();
}
BENCHMARK(Views_memory)->Iterations(1);

} // namespace
