#include "Commands.h"

namespace Cli {

int exportPNG(const IconExport&, ExportFormat, const Preferences&, const QString&, Io& io)
{
    io.err << "pictray: PNG export is not available yet\n";
    return Status::failure;
}

} // namespace Cli
