#pragma once

#include <QByteArrayView>

// Gives an idle tray program's unused memory back to the system.
namespace HeapTrim {

// The heap's free pages. The allocator keeps what start-up freed (the QML
// compiler's and the first frame's temporaries) resident until asked,
// megabytes that an idle tray program has no use for.
void releaseFreePages();

// The pages of `bytes`, a read-only part of a file the program maps, dropped
// from the process: they stay in the system's page cache, and reading them
// again maps them back. Bytes anywhere else (the heap, memory that can be
// written) are left alone, since dropping those would lose them.
void releaseMappedPages(QByteArrayView bytes);

// Both, once start-up settles and whenever the panel hides: the heap's free
// pages, and those of the compiled-in catalogue, which the panel read for its
// frames and reads again only for icons, tags or tips it has not shown yet.
void releaseIdleMemory();

} // namespace HeapTrim
