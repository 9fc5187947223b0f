#include "PickerFixture.h"

#include <benchmark/benchmark.h>

namespace {

// A copy measures the service: the snippet or the render and PNG encoding,
// and the record in the user library.
void copyIcon(benchmark::State& state, ExportFormat format)
{
    PickerFixture service;
    IconExport item;
    item.icon = service.library->icon(u"settings");
    for (auto _ : state) {
        if (!service.copy->copy(item, format))
            state.SkipWithError("copy failed");
    }
}
BENCHMARK_CAPTURE(copyIcon, text_tsx, ExportFormat::jsx)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyIcon, text_svg, ExportFormat::svg)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyIcon, png_2x, ExportFormat::png2)->Unit(benchmark::kMicrosecond);

} // namespace
