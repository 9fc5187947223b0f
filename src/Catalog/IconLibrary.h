#pragma once

#include "Icon.h"
#include "IconDrawing.h"
#include "IconSearch.h"
#include "TypoMatches.h"

#include <QCache>
#include <QHash>
#include <QMutex>
#include <QObject>
#include <QPainterPath>
#include <optional>

// The contents of one catalogue file.
struct CatalogueFile {
    QString version;
    IconList icons; // file order
};

// The loaded icon catalogue: the shipped file or a newer downloaded one.
class IconLibrary : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString version READ version NOTIFY catalogueChanged)
    Q_PROPERTY(QStringList categories READ categories NOTIFY catalogueChanged)
    Q_PROPERTY(int iconCount READ iconCount NOTIFY catalogueChanged)
    Q_PROPERTY(int outlineCount READ outlineCount NOTIFY catalogueChanged)
    Q_PROPERTY(int filledCount READ filledCount NOTIFY catalogueChanged)

public:
    using File = CatalogueFile;

    struct Sources {
        QString shippedPath;    // empty: nothing shipped
        QString downloadedPath; // where install() writes
    };

    // Loads the best of the two sources at once: the highest version that
    // decodes. A downloaded file that does not decode is moved aside (its
    // name plus ".damaged") and the next candidate loads; loadProblem() says so.
    explicit IconLibrary(Sources sources, QObject* parent = nullptr);
    // How the icons are made: all at load (the running program), or, when
    // the compiled-in catalogue is the one loaded, as they are asked for: a
    // lookup by name makes that icon alone, anything else makes them all.
    enum class Making { atLoad, onDemand };
    IconLibrary(Sources sources, Making making, QObject* parent = nullptr);

    // The library of the commands, over the real shipped and downloaded
    // files; its icons are made on demand, since most commands want one.
    static IconLibrary& shared();
    // The shipped file and the downloaded one's place.
    static Sources defaultSources();
    // The names of the icons the library over `sources` would load, in
    // catalogue order, without loading it: quick enough for shell completion.
    static QStringList iconNames(const Sources& sources);
    static QString shippedFilePath();
    // The shipped catalogue's compiled form, which its icons are read from;
    // null when the program was built without it.
    static QByteArray compiledInCatalogue();
    // $XDG_DATA_HOME/Pictray/tabler-icons.json on Linux; the folder is created.
    static QString downloadedFilePath();

    void load();
    // After another process changed the downloaded file: loads the best source
    // again when it is not the file and version loaded now. Unlike load(), a
    // file that does not decode is skipped and left where it is, and what is
    // loaded stays. Whether the catalogue changed.
    bool refresh();
    void apply(File file);
    // Decodes first (nothing is written on failure), then writes atomically,
    // then applies. False with *error set on any failure.
    bool install(const QByteArray& data, QString* error);
    // install() in two halves, so that the slow one can run on another
    // thread: save() decodes and writes `path` and touches nothing else;
    // adopt() makes what was saved to the downloaded path the catalogue.
    static std::optional<File> save(const QByteArray& data, const QString& path, QString* error);
    void adopt(File saved);

    // The version of a catalogue file's bytes, read from the first 64 bytes
    // when the writer put it there, else through a full decode.
    static std::optional<QString> peekVersion(const QByteArray& data);

    const IconList& icons() const { return made().m_icons; }
    int iconCount() const { return static_cast<int>(made().m_icons.size()); }
    QString version() const { return m_version; }
    QStringList categories() const { return made().m_categories; }
    int outlineCount() const;
    int filledCount() const;
    // The file the catalogue came from; empty when nothing is loaded.
    QString loadedPath() const { return m_loadedPath; }
    const Sources& sources() const { return m_sources; }
    // What the last load() found wrong with the downloaded file; empty when nothing.
    QString loadProblem() const { return m_loadProblem; }

    // Exact, case-sensitive; a null Icon when there is none.
    Icon icon(QStringView name) const;

    // The icon's paths of one style as drawn in the 24 x 24 icon space;
    // nullopt when the icon has no such form. The most recent are
    // cached (a few screens of the grid); safe from any thread.
    std::optional<IconDrawing> iconDrawing(const Icon& icon, IconStyle style) const;

    IconList search(QStringView query, const IconList& icons) const
    {
        return searchIndex().search(query, icons);
    }
    IconSearch::NearMatches nearMatches(QStringView query, int limit) const
    {
        return searchIndex().nearMatches(query, limit);
    }
    // Built on the first search rather than at start-up.
    const IconSearch& searchIndex() const;
    // What a query that found nothing most likely meant, despite a typo.
    IconList typoMatches(QStringView query, int limit) const;
    // The typo matches, then the icons of the near matches, each icon once:
    // up to `limit` close names for a query that found nothing.
    IconList suggestions(QStringView query, int limit) const;

    // 5233 -> "5,233"
    static QString number(qint64 value);

signals:
    void catalogueChanged();

private:
    struct Candidate {
        QString path;
        QByteArray bytes;
        std::optional<QString> version;
        bool compiledIn = false; // the bytes stay where they are until the program ends
    };
    static std::optional<File> decodeCandidate(const Candidate& candidate, QString* reason);
    // The compiled form of a compiled-in candidate; null for any other.
    static QByteArray compiledForm(const Candidate& candidate);
    // The readable sources, the one to load first.
    static std::vector<Candidate> candidates(const Sources& sources);
    // Moves a downloaded catalogue that does not decode out of the way.
    void setAside(const QString& path, const QString& reason);
    // Whether the compiled-in catalogue of `candidate` was taken on demand.
    bool defer(const Candidate& candidate);
    // The library with every icon made.
    const IconLibrary& made() const;
    void setIcons(File file);

    Sources m_sources;
    Making m_making = Making::atLoad;
    // The compiled catalogue loaded but not yet made into icons.
    QByteArray m_deferred;
    QString m_loadedPath;
    QString m_loadProblem;
    IconList m_icons;
    QString m_version;
    QStringList m_categories;
    QHash<QString, qsizetype> m_byName;
    mutable std::optional<IconSearch> m_search;
    mutable std::optional<TypoMatches> m_typos;

    // Bounded: the whole set's paths would hold megabytes, and one parses in
    // microseconds. An entry costs its element count.
    static constexpr qsizetype pathCacheElements = qsizetype{64} * 1024;
    mutable QMutex m_cacheLock;
    mutable QCache<QString, IconDrawing> m_pathCache{pathCacheElements};
};
