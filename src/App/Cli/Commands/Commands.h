#pragma once

#include "App/Cli/CommandLine.h"
#include "Base/ExportFormat.h"

struct IconExport;
class Preferences;

// Each command lives in its own file under Commands/ and is listed in
// CommandTable.cpp.
namespace Cli {

int info(const QStringList& args, Io& io);
int search(const QStringList& args, Io& io);
int near(const QStringList& args, Io& io);
int catalogue(const QStringList& args, Io& io);
int update(const QStringList& args, Io& io);
int prefs(const QStringList& args, Io& io);
int favorites(const QStringList& args, Io& io);
int recents(const QStringList& args, Io& io);
int exportIcon(const QStringList& args, Io& io);
// Sent to the running tray instance.
int toggle(const QStringList& args, Io& io);
int show(const QStringList& args, Io& io);
int copyLast(const QStringList& args, Io& io);
// Hidden: what the build installs and the shells ask.
int completions(const QStringList& args, Io& io);
int complete(const QStringList& args, Io& io);
int manpage(const QStringList& args, Io& io);

// Bytes to FILE, atomically, or to stdout when path is empty.
bool writeOutput(const QByteArray& bytes, const QString& path, Io& io);

// The PNG half of export: to FILE, or to stdout unless it is a terminal.
int exportPNG(const IconExport& item, ExportFormat format, const Preferences& preferences,
              const QString& output, Io& io);

} // namespace Cli
