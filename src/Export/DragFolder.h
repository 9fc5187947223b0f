#pragma once

#include <QString>

// Where drag files are written: a folder that only this user can enter, so
// another account can neither claim it first nor plant links or swap files in
// it. That is "Pictray" in $XDG_RUNTIME_DIR when the runtime folder is set and
// private; otherwise, or when that folder turns out not to be ours alone, a
// private folder made for this process in the temporary directory.
namespace DragFolder {

// The folder, created on first use; empty only when none could be made.
QString path();

// Drag files outlive the drag: a receiving program may read them later. The
// ones of an earlier run are removed when the tray starts.
void removeOldFiles();

} // namespace DragFolder
