#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// A whole command as a user runs it: start, load, print, exit.
void runPictray(benchmark::State& state, QStringList args)
{
    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
    const QString work = home.filePath(QStringLiteral("work"));
    QDir().mkpath(work);
    for (auto _ : state) {
        QProcess process;
        process.setWorkingDirectory(work);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(PICTRAY_BINARY), args);
        if (!process.waitForFinished() || process.exitCode() != 0)
            state.SkipWithError("pictray failed");
    }
}
BENCHMARK_CAPTURE(runPictray, version, QStringList{QStringLiteral("--version")})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runPictray, info, QStringList{QStringLiteral("info")})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runPictray, search,
                  QStringList{QStringLiteral("search"), QStringLiteral("arrow")})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runPictray, export_png2,
                  QStringList{QStringLiteral("export"), QStringLiteral("home"),
                              QStringLiteral("--format"), QStringLiteral("png2"),
                              QStringLiteral("-o"), QStringLiteral("home.png")})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
