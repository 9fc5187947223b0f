#include "Catalog/IconLibrary.h"
#include "Commands.h"
#include "Export/IconExport.h"
#include "Export/IconRenderer.h"
#include "Export/RenderOptions.h"

#include <unistd.h>

namespace Cli {

int exportPNG(const IconExport& item, ExportFormat format, const Preferences& preferences,
              const QString& output, Io& io)
{
    if (output.isEmpty() && isatty(fileno(io.stdoutFile))) {
        io.err << "pictray: a PNG is not text; give -o FILE or redirect the output, e.g. "
                  "> icon.png\n";
        return Status::usage;
    }
    const int scale = Formats::pngScale(format).value_or(1);
    const QImage image = IconRenderer::bitmap(IconLibrary::shared(), item.icon,
                                              RenderOptions::forExport(item, scale, preferences));
    const QByteArray png = image.isNull() ? QByteArray() : IconRenderer::encodePNG(image);
    if (png.isEmpty()) {
        io.err << "pictray: cannot render " << item.icon.id() << " at that size\n";
        return Status::failure;
    }
    return writeOutput(png, output, io) ? Status::ok : Status::failure;
}

} // namespace Cli
