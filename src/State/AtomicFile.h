#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// Replaces the regular file at `path` with `data` in one step (QSaveFile):
// anyone reading it sees the old contents or the new, never a half-written
// file, and a failed write leaves the old file as it was. A device, FIFO or
// socket at `path` (/dev/stdout into a pipe, say) cannot be replaced and is
// written in place instead. Nullopt when written, else what went wrong,
// naming the file.
std::optional<QString> writeFileAtomically(const QString& path, const QByteArray& data);
