#pragma once

// The tray application lives in a module of its own, loaded only when
// Pictray starts without a command: the command line then never maps Qt
// Quick and Widgets, which would double its start-up time.
namespace TrayLauncher {

// The module's file name, looked for beside the executable (a build) and in
// the installed module folder relative to it (../lib/pictray under a prefix
// with the usual layout), so an installed tree works wherever it lies.
inline constexpr const char* moduleFileName = "libpictray-tray.so";

// Loads the module and runs the tray application; its exit status, or 1
// with a message on stderr when the module cannot be loaded.
int run(int argc, char* argv[]);

} // namespace TrayLauncher
