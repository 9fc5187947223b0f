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

// One catalogue entry. A cheap handle to immutable shared data: copying an
// Icon costs one reference count, so lists of icons are passed by value.
class Icon {
public:
    Icon() = default;
    Icon(QString id, QString category, QStringList tags, std::optional<PathList> outline,
         std::optional<PathList> filled, IconPaints paints = {});

    // An icon whose lower-cased search forms are known already (a compiled
    // catalogue keeps them), so nothing is converted.
    struct Names {
        QString id;
        QString category;
        QStringList tags;
        QString searchName;
        QStringList searchTags; // one per tag
    };
    static Icon withSearchForms(Names names, std::optional<PathList> outline,
                                std::optional<PathList> filled, IconPaints paints);

    bool isNull() const { return !d; }

    const QString& id() const { return d->id; }
    const QString& category() const { return d->category; }
    const QStringList& tags() const { return d->tags; }
    const std::optional<PathList>& outline() const { return d->outline; }
    const std::optional<PathList>& filled() const { return d->filled; }
    const QString& searchName() const { return d->searchName; }
    const QStringList& searchTags() const { return d->searchTags; }

    bool has(IconStyle style) const { return paths(style) != nullptr; }
    // The path list of a style, or null when the icon has no such form.
    const PathList* paths(IconStyle style) const;
    // How each path of a style is painted: empty when all are plain, else one
    // per path.
    const PathPaints& paints(IconStyle style) const;

    // Tags other than the name itself, the first four joined by " · ";
    // the category when none is left.
    QString tagLine() const;
    // arrow-up-right -> ArrowUpRight: the component name of the code formats.
    QString pascalName() const;

    friend bool operator==(const Icon& a, const Icon& b)
    {
        return a.d == b.d || (a.d && b.d && a.d->id == b.d->id);
    }

    // Tells icon data apart without comparing names: copies share it.
    const void* identity() const { return d.data(); }

private:
    struct Data : QSharedData {
        QString id;
        QString category;
        QStringList tags;
        std::optional<PathList> outline;
        std::optional<PathList> filled;
        QString searchName;
        QStringList searchTags;
        std::shared_ptr<const IconPaints> paints; // null for the plain icons
    };
    // Completes `data` with the paths and paints, and holds it.
    void takePathsAndData(Data* data, std::optional<PathList> outline,
                          std::optional<PathList> filled, IconPaints paints);

    QExplicitlySharedDataPointer<const Data> d;
};

inline size_t qHash(const Icon& icon, size_t seed = 0)
{
    return qHash(icon.isNull() ? QString() : icon.id(), seed);
}

Q_DECLARE_TYPEINFO(Icon, Q_RELOCATABLE_TYPE);

using IconList = QList<Icon>;

Q_DECLARE_METATYPE(Icon)
