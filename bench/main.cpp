#include <QGuiApplication>
#include <benchmark/benchmark.h>

int main(int argc, char* argv[])
{
    // Offscreen unless told otherwise, so rendering benchmarks run without a
    // display; QT_QPA_PLATFORM=xcb under Xvfb measures OpenGL.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
