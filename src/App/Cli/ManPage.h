#pragma once

#include <QString>

namespace Cli {

// pictray(1) in roff, made from the command table like --help.
QString manPage(const QString& version);

} // namespace Cli
