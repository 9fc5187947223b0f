#pragma once

#include <QByteArray>
#include <QHash>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>

// The user's key-value store: an INI file read and written through QSettings,
// plus registered defaults that live in memory only and are never written, so
// a user who never touched a setting keeps following the program's defaults.
//
// Typed reads never fail. A value of the wrong type (say "abc" where an
// integer belongs, after a hand edit) reads as if the key were missing: the
// registered default when there is one, else the type's empty value (false,
// 0, 0.0, no string, no bytes, empty list).
//
// Several processes share the file (the tray, any number of `pictray`
// commands), so every change is a read-modify-write under an inter-process
// lock: update() re-reads the file, applies the change and writes it before
// letting the next writer in. A single setter is such an update of its own.
// Reads between updates see the file as it was at the last one.
class SettingsStore {
public:
    explicit SettingsStore(const QString& filePath);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    // $XDG_CONFIG_HOME/Pictray/Pictray.conf on Linux. The name is spelled out
    // rather than derived from the organisation and application names, which
    // the program leaves partly empty.
    static QString defaultPath();
    QString filePath() const;

    // Fallback values, typed as the readers below expect them (bool, qint64,
    // double, QString, QByteArray, QStringList).
    void registerDefaults(const QList<std::pair<QString, QVariant>>& defaults);
    QVariant registeredDefault(const QString& key) const { return m_defaults.value(key); }

    // Whether the user's own file holds the key; registered defaults do not count.
    bool contains(const QString& key) const;
    QStringList userKeys() const;
    void remove(const QString& key);

    bool boolValue(const QString& key) const;
    qint64 intValue(const QString& key) const;
    double doubleValue(const QString& key) const;
    std::optional<QString> stringValue(const QString& key) const;
    // nullopt when missing (or of the wrong type); zero-length bytes are a value.
    std::optional<QByteArray> bytesValue(const QString& key) const;
    QStringList stringListValue(const QString& key) const;

    void setBool(const QString& key, bool value);
    void setInt(const QString& key, qint64 value);
    void setDouble(const QString& key, double value);
    void setString(const QString& key, const QString& value);
    void setBytes(const QString& key, const QByteArray& value);
    void setStringList(const QString& key, const QStringList& value);

    // Runs `change` (which reads and sets through this store) between a fresh
    // read of the file and the write of the result, under the lock. Nullopt
    // when written, else why not, naming the file; also kept as writeError().
    std::optional<QString> update(const std::function<void()>& change);
    // Takes in what another process wrote since the last read, writing
    // nothing. False, with the values read before still in place, when the
    // file cannot be taken in whole: a line that does not parse, or a last
    // line without its end, as a writer that replaces the file in place
    // leaves it midway (QSettings always ends its lines).
    bool refresh();
    // The outcome of the last write.
    std::optional<QString> writeError() const { return m_writeError; }

    // How stored text is read as a bool ("true"/"false" in any case, "1"/"0"),
    // an integer or a finite double; nullopt when it is none of them.
    static std::optional<bool> parseBool(const QString& text);
    static std::optional<qint64> parseInt(const QString& text);
    static std::optional<double> parseDouble(const QString& text);

private:
    // The first of the user's value and the registered default that `parse`
    // accepts.
    template <typename Parse>
    auto read(const QString& key, Parse parse) const -> decltype(parse(QVariant()));

    void set(const QString& key, const QVariant& value);
    // Re-reads the file with a fresh QSettings, whose status then says only
    // what happened since.
    void reload();
    std::optional<QString> writeFailure() const;

    QString m_filePath;
    std::unique_ptr<QSettings> m_settings;
    QHash<QString, QVariant> m_defaults;
    std::optional<QString> m_writeError;
    bool m_updating = false;
    bool m_hasUnreadableLine = false;
};
