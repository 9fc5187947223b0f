#include "Catalog/IconLibrary.h"
#include "Export/CopyService.h"
#include "Export/CopyTargets.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// Targets that take the content and drop it, so a copy measures the service:
// the snippet or the render and PNG encoding, and the record in the user library.
struct NullTargets : Clipboard, HeadsUp, Paster {
    void clear() override {}
    void putText(const QString& text) override { benchmark::DoNotOptimize(text.size()); }
    void putPNG(const QByteArray& png, const QImage&) override
    {
        benchmark::DoNotOptimize(png.size());
    }
    void show(const QString&) override {}
    void rememberTarget() override {}
    bool isTrusted() const override { return false; }
    void paste() override {}
};

struct Service {
    QTemporaryDir dir;
    SettingsStore store{dir.filePath(QStringLiteral("settings.conf"))};
    Preferences prefs{store};
    IconLibrary library{{IconLibrary::shippedFilePath(), {}}};
    UserLibrary user{store, prefs,
                     [this](const QString& name) { return !library.icon(name).isNull(); }};
    NullTargets targets;
    CopyService copy{library, user, prefs, targets, targets, targets};
};

void copyIcon(benchmark::State& state, ExportFormat format)
{
    Service service;
    IconExport item;
    item.icon = service.library.icon(u"settings");
    for (auto _ : state) {
        if (!service.copy.copy(item, format))
            state.SkipWithError("copy failed");
    }
}
BENCHMARK_CAPTURE(copyIcon, text_tsx, ExportFormat::jsx)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyIcon, text_svg, ExportFormat::svg)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyIcon, png_2x, ExportFormat::png2)->Unit(benchmark::kMicrosecond);

} // namespace
