#pragma once

// Hands the heap's free pages back to the system. Loading the panel's QML
// and rendering its first frame leave megabytes of freed memory that the
// allocator would otherwise keep for the life of this long-running program.
void returnFreedMemoryToSystem();
