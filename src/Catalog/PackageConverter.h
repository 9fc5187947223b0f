#pragma once

#include "Icon.h"

#include <QByteArrayView>
#include <QHash>
#include <optional>
#include <vector>

// Turns the files of one @tabler/icons release (icons.json and the two node
// files) into a catalogue file.
namespace PackageConverter {

// One value of icons.json; other keys of the metadata objects are ignored.
struct Meta {
    QString category;
    QStringList tags;
};

// A tag given as a number becomes the shortest decimal text of a double,
// always with a fraction: 2 -> "2.0".
QString stringOrNumber(double value);

// Icon name -> its "d" strings; anything not of the node-file shape yields
// nothing for that part (an empty map for a file of the wrong shape).
QHash<QString, PathList> nodes(QByteArrayView data);

// icons.json: nullopt (with the reason) when it is not an object of Meta.
std::optional<QHash<QString, Meta>> metadata(QByteArrayView data, QString* error);

struct OutEntry {
    QString n;
    QString c;
    QStringList t;
    std::optional<PathList> o;
    std::optional<PathList> f;
};

struct OutFile {
    QString version;
    std::vector<OutEntry> icons;
    // Compact JSON starting with {"version":" so the version can be peeked.
    QByteArray encode() const;
};

// Icons are the union of the node files' names, sorted.
OutFile build(const QString& version, const QHash<QString, Meta>& meta,
              const QHash<QString, PathList>& outline, const QHash<QString, PathList>& filled);

// All of the above from raw bytes; nullopt with *error when icons.json is bad
// or an icon's name or path data is not what a catalogue may hold (IconText).
std::optional<QByteArray> convert(const QString& version, QByteArrayView iconsJson,
                                  QByteArrayView outlineNodes, QByteArrayView filledNodes,
                                  QString* error);

} // namespace PackageConverter
