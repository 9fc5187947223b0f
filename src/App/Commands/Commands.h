#pragma once

#include "CommandLine.h"

// Each command lives in its own file under Commands/ and is listed in
// CommandLine.cpp.
namespace Cli {

int info(const QStringList& args, Io& io);
int search(const QStringList& args, Io& io);
int near(const QStringList& args, Io& io);
int catalogue(const QStringList& args, Io& io);
int update(const QStringList& args, Io& io);
int prefs(const QStringList& args, Io& io);
int favorites(const QStringList& args, Io& io);
int recents(const QStringList& args, Io& io);

} // namespace Cli
