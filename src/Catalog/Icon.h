#pragma once

#include "Base/RawValue.h"
#include "PathPaint.h"

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QMetaType>
#include <QSharedData>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

enum class IconStyle { outline, filled };

template <> struct RawValues<IconStyle> {
    static constexpr std::array<const char*, 2> names{"outline", "filled"};
};

// The "d" attribute strings of one style, in drawing order, as UTF-8.
using PathList = QList<QByteArray>;

// The paths of either style that the icon set paints differently.
struct IconPaints {
    PathPaints outline; // empty, or one per outline path
    PathPaints filled;
    bool isEmpty() const { return outline.isEmpty() && filled.isEmpty(); }
};

// Where an icon's tags, paths and paints live. An icon decoded from JSON
// holds its own; the icons of a catalogue read in place ask the catalogue
// each time, so thousands of icons do not each keep lists that only the few
// drawn or looked at are ever asked for.
class IconContent {
public:
    virtual ~IconContent() = default;
    virtual QStringList tags(quint32 index) const = 0;
    virtual QStringList searchTags(quint32 index) const = 0; // one per tag
    virtual bool has(quint32 index, IconStyle style) const = 0;
    // nullopt when the icon has no such form.
    virtual std::optional<PathList> paths(quint32 index, IconStyle style) const = 0;
    virtual PathPaints paints(quint32 index, IconStyle style) const = 0;

protected:
    IconContent() = default;
    IconContent(const IconContent&) = default;
    IconContent& operator=(const IconContent&) = default;
};

// One catalogue entry. A cheap handle to immutable shared data: copying an
// Icon costs one reference count, so lists of icons are passed by value.
class Icon {
public:
    Icon() = default;
    Icon(QString id, QString category, QStringList tags, std::optional<PathList> outline,
         std::optional<PathList> filled, IconPaints paints = {});

    // The names an icon always holds; `searchName` is the lower-cased id.
    struct Names {
        QString id;
        QString category;
        QString searchName;
    };
    // An icon whose tags and paths are entry `index` of `content`.
    static Icon inContent(Names names, std::shared_ptr<const IconContent> content, quint32 index);

    bool isNull() const { return !d; }

    const QString& id() const { return d->names.id; }
    const QString& category() const { return d->names.category; }
    const QString& searchName() const { return d->names.searchName; }
    QStringList tags() const { return d->content->tags(d->index); }
    QStringList searchTags() const { return d->content->searchTags(d->index); }

    bool has(IconStyle style) const { return d->content->has(d->index, style); }
    // The path list of a style, or nullopt when the icon has no such form.
    std::optional<PathList> paths(IconStyle style) const
    {
        return d->content->paths(d->index, style);
    }
    std::optional<PathList> outline() const { return paths(IconStyle::outline); }
    std::optional<PathList> filled() const { return paths(IconStyle::filled); }
    // How each path of a style is painted: empty when all are plain, else one
    // per path.
    PathPaints paints(IconStyle style) const { return d->content->paints(d->index, style); }

    // Tags other than the name itself, the first four joined by " · ";
    // the category when none is left.
    QString tagLine() const;
    // arrow-up-right -> ArrowUpRight: the component name of the code formats.
    QString pascalName() const;

    friend bool operator==(const Icon& a, const Icon& b)
    {
        return a.d == b.d || (a.d && b.d && a.d->names.id == b.d->names.id);
    }

    // Tells icon data apart without comparing names: copies share it.
    const void* identity() const { return d.data(); }

private:
    struct Data : QSharedData {
        Names names;
        std::shared_ptr<const IconContent> content;
        quint32 index = 0;
    };

    QExplicitlySharedDataPointer<const Data> d;
};

inline size_t qHash(const Icon& icon, size_t seed = 0)
{
    return qHash(icon.isNull() ? QString() : icon.id(), seed);
}

Q_DECLARE_TYPEINFO(Icon, Q_RELOCATABLE_TYPE);

using IconList = QList<Icon>;

Q_DECLARE_METATYPE(Icon)
