#pragma once

#include "Base/ExportFormat.h"
#include "Catalog/Icon.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

class Preferences;
class SettingsStore;

// What the user made their own: favorite icons, the icons copied last and the
// full description of the last copy, all by icon name so they survive a
// catalogue update. Every change is written to the store at once under
// "favorites", "recents" and "lastCopy", applied to the lists as the store
// holds them then, so a change another process made meanwhile is kept.
// Whether a change reached the file: the store's writeError().
class UserLibrary : public QObject {
    Q_OBJECT
    Q_PROPERTY(QStringList favorites READ favorites NOTIFY favoritesChanged)
    Q_PROPERTY(QStringList recents READ recents NOTIFY recentsChanged)

public:
    struct LastCopy {
        QString name;
        IconStyle style = IconStyle::outline;
        ExportFormat format = ExportFormat::svg;
        QString color;
        qint64 size = 24;
        double stroke = 2.0;

        // Keys "name", "style", "format", "color", "size", "stroke"; enums as
        // raw values. Decoding needs all six with the right types.
        QByteArray toJson() const;
        static std::optional<LastCopy> fromJson(const QByteArray& json);
        friend bool operator==(const LastCopy&, const LastCopy&) = default;
    };

    // Whether the catalogue has an icon of exactly this name.
    using IconExists = std::function<bool(const QString& name)>;

    // Larger import files are refused unread.
    static constexpr qint64 maxImportBytes = qint64(4) * 1024 * 1024;

    UserLibrary(SettingsStore& store, const Preferences& preferences, IconExists iconExists,
                QObject* parent = nullptr);

    // The running program's library over Preferences::shared()'s store and
    // IconLibrary::shared().
    static UserLibrary& shared();

    QStringList favorites() const { return m_favorites; }
    QStringList recents() const { return m_recents; }
    std::optional<LastCopy> lastCopy() const { return m_lastCopy; }
    bool isFavorite(const QString& name) const { return m_favorites.contains(name); }
    bool iconExists(const QString& name) const { return m_iconExists(name); }

    // After every copy: becomes the last copy and moves to the front of the
    // recents, which keep at most the recents limit (a negative limit keeps none).
    void recordCopy(const LastCopy& copy);
    // Removes a favorite where it stands, or appends a new one.
    void toggleFavorite(const QString& name);
    // Appends those of `names` that are not favorites, or removes those that are.
    void setFavorite(const QStringList& names, bool favorite);
    // Applies a lowered recents limit at once.
    void trimRecents();
    // Reads the lists and the last copy from the store again (after another
    // process changed them) and emits the signal of each that differs.
    // Writes nothing.
    void reload();
    void clearRecents();

    // Pretty-printed JSON with sorted keys "app", "favorites", "version".
    QByteArray exportFavorites() const;
    // Takes the names of an export file, or of a bare JSON array of names,
    // that the catalogue has and that were not favorites before the import,
    // in file order: a name listed twice is taken twice. Returns how many were
    // taken; nullopt, with favorites unchanged, for anything else (not JSON,
    // too large, too deeply nested, a list holding non-strings).
    std::optional<int> importFavorites(const QByteArray& data);
    // The names an import file lists, in file order; nullopt for anything
    // importFavorites refuses. Reads nothing else and changes nothing.
    static std::optional<QStringList> importedNames(const QByteArray& data);

    // "Imported 1 new favorite." / "Imported 2 new favorites."
    static QString importedMessage(int count);
    // "That file isn’t a Pictray favorites export."
    static QString notAnExportMessage();
    // "That file is too large for a Pictray favorites export (over 4 MB)."
    static QString tooLargeMessage();
    // An import file's bytes. Nullopt with *error set when it cannot be read,
    // or, when it is larger than maxImportBytes, to tooLargeMessage().
    static std::optional<QByteArray> readImportFile(const QString& path, QString* error);
    static QString exportFileName() { return QStringLiteral("Pictray Favorites.json"); }

signals:
    void favoritesChanged();
    void recentsChanged();
    void lastCopyChanged();

private:
    std::optional<LastCopy> storedLastCopy() const;
    // Replaces the stored list with change(stored list), in one update.
    void changeFavorites(const std::function<QStringList(const QStringList&)>& change);
    // The same, then cut to the recents limit.
    void changeRecents(const std::function<QStringList(const QStringList&)>& change);

    SettingsStore& m_store;
    const Preferences& m_preferences;
    IconExists m_iconExists;
    QStringList m_favorites;
    QStringList m_recents;
    std::optional<LastCopy> m_lastCopy;
};
