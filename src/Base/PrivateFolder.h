#pragma once

#include <QString>

// Folders only this user can enter. Files that other accounts must not read,
// replace or pre-empt (drag files, the control socket and its lock) live in
// one, so nobody can claim the name first or plant links in it.
namespace PrivateFolder {

// A real directory (not a link) owned by this user, closed to everyone else.
bool isPrivate(const QString& path);

// Makes `path` with owner-only access when it is missing. True when it then
// is private; a folder somebody else made or opened is never taken over.
bool claim(const QString& path);

} // namespace PrivateFolder
