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

// One icon's paths of one style in a node file: the "d" strings and, when
// any path carries paint attributes, one PathPaint per path.
struct NodePaths {
    PathList paths;
    PathPaints paints;
    friend bool operator==(const NodePaths&, const NodePaths&) = default;
};

// Icon name -> its paths; anything not of the node-file shape yields
// nothing for that part (an empty map for a file of the wrong shape).
QHash<QString, NodePaths> nodes(QByteArrayView data);

// icons.json: nullopt (with the reason) when it is not an object of Meta.
std::optional<QHash<QString, Meta>> metadata(QByteArrayView data, QString* error);

struct OutEntry {
    OutEntry(QString name, QString category, QStringList tags, std::optional<PathList> outline,
             std::optional<PathList> filled, IconPaints pathPaints = {})
        : n(std::move(name)), c(std::move(category)), t(std::move(tags)), o(std::move(outline)),
          f(std::move(filled)), paints(std::move(pathPaints))
    {
    }
    QString n;
    QString c;
    QStringList t;
    std::optional<PathList> o;
    std::optional<PathList> f;
    IconPaints paints; // written as "oa" and "fa"
};

struct OutFile {
    QString version;
    std::vector<OutEntry> icons;
    // Compact JSON starting with {"version":" so the version can be peeked.
    QByteArray encode() const;
};

// Icons are the union of the node files' names, sorted.
OutFile build(const QString& version, const QHash<QString, Meta>& meta,
              const QHash<QString, NodePaths>& outline, const QHash<QString, NodePaths>& filled);

// All of the above from raw bytes; nullopt with *error when icons.json is bad
// or an icon's name or path data is not what a catalogue may hold (IconText).
std::optional<QByteArray> convert(const QString& version, QByteArrayView iconsJson,
                                  QByteArrayView outlineNodes, QByteArrayView filledNodes,
                                  QString* error);

} // namespace PackageConverter
