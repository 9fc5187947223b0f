#include "Panel/PanelPlacement.h"
#include "Panel/PickerController.h"
#include "PickerFixture.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

void PanelPlacement_everyPosition(benchmark::State& state)
{
    const QRect area(0, 24, 1920, 1056);
    const QRect tray(1880, 0, 24, 24);
    int sum = 0;
    for (auto _ : state) {
        for (const PickerPosition position : allCases<PickerPosition>())
            sum += PanelPlacement::place(position, area, QPoint(900, 1000), tray,
                                         WindowingSession::x11())
                       .frame.x();
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * 3);
}
BENCHMARK(PanelPlacement_everyPosition);

// The panel over the shipped catalogue with a stand-in for the views: what
// is measured is the window, the engine and the first frame, not the views.
struct Panel : PickerFixture {
    QUrl root;

    Panel()
    {
        QFile qml(dir.filePath(QStringLiteral("Root.qml")));
        if (!qml.open(QIODevice::WriteOnly) ||
            qml.write("import QtQuick\n"
                      "Rectangle {\n"
                      "  required property QtObject model\n"
                      "  required property QtObject popover\n"
                      "  required property QtObject controller\n"
                      "  width: 780; height: popover.hasArrow ? 741 : 730\n"
                      "  radius: 12; color: appearance.dark ? '#1e1e1e' : '#f5f5f5'\n"
                      "  Text { x: 16; y: 16; text: model.placeholder }\n"
                      "  TextInput { x: 16; y: 48; width: 300; focus: true; text: model.query }\n"
                      "}\n") < 0)
            qFatal("cannot write the stand-in QML");
        root = QUrl::fromLocalFile(qml.fileName());
        prefs.setPickerPosition(PickerPosition::centered);
    }
};

// Shows the panel and runs the event loop until its first frame is on screen.
bool showUntilFirstFrame(PickerController& controller)
{
    QEventLoop loop;
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, &loop, [&loop] { loop.exit(1); });
    controller.show(); // the panel exists from here; it is exposed by the event loop
    // Queued: with a threaded render loop the signal comes from the render thread.
    const QMetaObject::Connection swapped = QObject::connect(
        controller.panel(), &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(0); },
        Qt::QueuedConnection);
    timeout.start(5000);
    const bool shown = loop.exec() == 0;
    QObject::disconnect(swapped);
    return shown;
}

// Once, before any other panel: also loads the Qt Quick modules and plugins.
void PanelFirstFrame_firstInProcess(benchmark::State& state)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    Panel panel;
    for (auto _ : state) {
        PickerController controller(*panel.model, panel.prefs, *panel.user, *panel.copy,
                                    panel.targets);
        controller.setRootUrl(panel.root);
        if (!showUntilFirstFrame(controller))
            state.SkipWithError("no frame within 5 s");
    }
}
BENCHMARK(PanelFirstFrame_firstInProcess)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1);

void PanelFirstFrame_cold(benchmark::State& state)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    Panel panel;
    for (auto _ : state) {
        // A new controller makes its window, engine and root item on show.
        PickerController controller(*panel.model, panel.prefs, *panel.user, *panel.copy,
                                    panel.targets);
        controller.setRootUrl(panel.root);
        if (!showUntilFirstFrame(controller))
            state.SkipWithError("no frame within 5 s");
        state.PauseTiming();
        controller.hide();
        state.ResumeTiming();
    }
}
BENCHMARK(PanelFirstFrame_cold)->Unit(benchmark::kMillisecond)->UseRealTime();

void PanelFirstFrame_warm(benchmark::State& state)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    Panel panel;
    PickerController controller(*panel.model, panel.prefs, *panel.user, *panel.copy, panel.targets);
    controller.setRootUrl(panel.root);
    showUntilFirstFrame(controller);
    for (auto _ : state) {
        state.PauseTiming();
        controller.hide();
        QCoreApplication::processEvents();
        state.ResumeTiming();
        if (!showUntilFirstFrame(controller))
            state.SkipWithError("no frame within 5 s");
    }
}
BENCHMARK(PanelFirstFrame_warm)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
