#include <QGuiApplication>
#include <benchmark/benchmark.h>

int main(int argc, char* argv[])
{
    // Offscreen, so rendering benchmarks run without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
