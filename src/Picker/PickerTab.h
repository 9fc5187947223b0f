#pragma once

#include <QHashFunctions>
#include <QMetaType>
#include <QObject>
#include <QString>

// Which subset of the catalogue the picker lists: everything, the user's
// favorites or recents, or one category. Two category tabs are equal when
// their names are.
class PickerTab {
    Q_GADGET
    Q_PROPERTY(Kind kind READ kind CONSTANT)
    Q_PROPERTY(QString categoryName READ categoryName CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    enum class Kind { all, favorites, recents, category };
    Q_ENUM(Kind)

    PickerTab() = default; // all
    static PickerTab all() { return {}; }
    static PickerTab favorites() { return PickerTab(Kind::favorites, {}); }
    static PickerTab recents() { return PickerTab(Kind::recents, {}); }
    static PickerTab ofCategory(const QString& name) { return PickerTab(Kind::category, name); }

    Kind kind() const { return m_kind; }
    bool is(Kind kind) const { return m_kind == kind; }
    // Empty unless the tab is a category.
    QString categoryName() const { return m_categoryName; }
    // "All", "Favorites", "Recents" or the category's name.
    QString title() const;

    friend bool operator==(const PickerTab&, const PickerTab&) = default;

private:
    PickerTab(Kind kind, QString categoryName)
        : m_kind(kind), m_categoryName(std::move(categoryName))
    {
    }

    Kind m_kind = Kind::all;
    QString m_categoryName;
};

inline size_t qHash(const PickerTab& tab, size_t seed = 0)
{
    return qHashMulti(seed, static_cast<int>(tab.kind()), tab.categoryName());
}

Q_DECLARE_METATYPE(PickerTab)
