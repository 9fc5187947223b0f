#pragma once

// Hands the heap's free pages back to the system. The allocator keeps what
// start-up freed (the JSON parser's buffers, the QML compiler's and the
// first frame's temporaries) resident until asked, megabytes that an idle
// tray program has no use for.
namespace HeapTrim {
void releaseFreePages();
}
