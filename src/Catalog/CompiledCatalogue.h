#pragma once

#include "IconLibrary.h"

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

// The catalogue in a form read in place rather than decoded: every name, tag
// and path is stored as the program holds it (names and tags as UTF-16, with
// their search forms; paths as UTF-8), so loading makes each icon from its
// names alone, as views into the bytes, and an icon's tags, paths and paints
// are read from the bytes when asked for. Made from the JSON catalogue at
// build time for the shipped set; the JSON stays the form that is downloaded
// and exchanged.
namespace CompiledCatalogue {

QByteArray compile(const CatalogueFile& file);

// The icons point into `bytes`, which must stay valid and unchanged for the
// rest of the run (a compiled-in resource). Every offset is checked, so
// damaged bytes give nullopt and a reason rather than a crash: the icons'
// records here, an entry of their tags or paths when it is read (a tag list
// or path list that does not read is empty or missing, damaged paints plain).
std::optional<CatalogueFile> read(QByteArrayView bytes, QString* error = nullptr);

// The version alone; nullopt when the bytes do not open.
std::optional<QString> version(QByteArrayView bytes);

// The first icon of that name, made without making the others; a null Icon
// when there is none or the bytes do not read.
Icon find(QByteArrayView bytes, QStringView name);

} // namespace CompiledCatalogue
