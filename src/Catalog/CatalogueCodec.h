#pragma once

#include "IconLibrary.h"
#include "TextArena.h"

#include <QByteArrayView>
#include <optional>

namespace CatalogueCodec {

// Decodes a whole catalogue file. Any missing required key or wrong type makes
// the file undecodable: nullopt with a reason in *error. With an arena, the
// icons' text lives there instead of in allocations of its own.
std::optional<CatalogueFile> decode(QByteArrayView data, QString* error = nullptr,
                                    TextArena* arena = nullptr);

// The "version" of a file through a full decode of that key alone.
std::optional<QString> decodeVersionOnly(QByteArrayView data);

// The icons' names alone, in file order, far quicker than a whole decode;
// nullopt where the file has no "icons" array of objects with a name.
std::optional<QStringList> decodeNames(QByteArrayView data);

// Appends `text` as a JSON string literal (quotes included).
void appendJsonString(QByteArray& out, QStringView text);
void appendJsonString(QByteArray& out, QByteArrayView utf8);

} // namespace CatalogueCodec
