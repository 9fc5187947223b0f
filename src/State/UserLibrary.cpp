#include "UserLibrary.h"

#include "Preferences.h"
#include "SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

QString favoritesKey()
{
    return QStringLiteral("favorites");
}
QString recentsKey()
{
    return QStringLiteral("recents");
}
QString lastCopyKey()
{
    return QStringLiteral("lastCopy");
}

template <typename E> std::optional<E> enumValue(const QJsonValue& value)
{
    return value.isString() ? fromRawValue<E>(value.toString()) : std::nullopt;
}

// The names of an export file or of a bare list; nullopt when the document
// is neither or a name is not a string.
std::optional<QStringList> namesIn(const QJsonDocument& document)
{
    QJsonArray array;
    if (document.isObject()) {
        const QJsonValue favorites = document.object().value(QStringLiteral("favorites"));
        if (!favorites.isArray())
            return std::nullopt;
        array = favorites.toArray();
    } else if (document.isArray()) {
        array = document.array();
    } else {
        return std::nullopt;
    }
    QStringList names;
    names.reserve(array.size());
    for (const auto& name : std::as_const(array)) {
        if (!name.isString())
            return std::nullopt;
        names.append(name.toString());
    }
    return names;
}

} // namespace

QByteArray UserLibrary::LastCopy::toJson() const
{
    const QJsonObject object{
        {QStringLiteral("name"), name},
        {QStringLiteral("style"), rawValue(style)},
        {QStringLiteral("format"), rawValue(format)},
        {QStringLiteral("color"), color},
        {QStringLiteral("size"), size},
        {QStringLiteral("stroke"), stroke},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<UserLibrary::LastCopy> UserLibrary::LastCopy::fromJson(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return std::nullopt;
    const QJsonObject object = document.object();
    const QJsonValue name = object.value(QStringLiteral("name"));
    const QJsonValue color = object.value(QStringLiteral("color"));
    const QJsonValue size = object.value(QStringLiteral("size"));
    const QJsonValue stroke = object.value(QStringLiteral("stroke"));
    const auto style = enumValue<IconStyle>(object.value(QStringLiteral("style")));
    const auto format = enumValue<ExportFormat>(object.value(QStringLiteral("format")));
    if (!name.isString() || !color.isString() || !style || !format || !size.isDouble() ||
        !stroke.isDouble())
        return std::nullopt;
    // An integer field holding 24.5 does not decode.
    const double sizeNumber = size.toDouble();
    if (std::trunc(sizeNumber) != sizeNumber || std::abs(sizeNumber) > 9007199254740992.0)
        return std::nullopt;
    return LastCopy{name.toString(),  *style,           *format,
                    color.toString(), size.toInteger(), stroke.toDouble()};
}

UserLibrary::UserLibrary(SettingsStore& store, const Preferences& preferences,
                         IconExists iconExists, QObject* parent)
    : QObject(parent), m_store(store), m_preferences(preferences),
      m_iconExists(std::move(iconExists)), m_favorites(store.stringListValue(favoritesKey())),
      m_recents(store.stringListValue(recentsKey())), m_lastCopy(storedLastCopy())
{
}

std::optional<UserLibrary::LastCopy> UserLibrary::storedLastCopy() const
{
    // Undecodable data stays in the store until the next copy replaces it.
    const auto data = m_store.bytesValue(lastCopyKey());
    return data ? LastCopy::fromJson(*data) : std::nullopt;
}

void UserLibrary::reload()
{
    const QStringList favorites = m_store.stringListValue(favoritesKey());
    const QStringList recents = m_store.stringListValue(recentsKey());
    const std::optional<LastCopy> lastCopy = storedLastCopy();
    const bool favoritesDiffer = std::exchange(m_favorites, favorites) != favorites;
    const bool recentsDiffer = std::exchange(m_recents, recents) != recents;
    const bool lastCopyDiffers = std::exchange(m_lastCopy, lastCopy) != lastCopy;
    if (favoritesDiffer)
        emit favoritesChanged();
    if (recentsDiffer)
        emit recentsChanged();
    if (lastCopyDiffers)
        emit lastCopyChanged();
}

void UserLibrary::changeFavorites(const std::function<QStringList(const QStringList&)>& change)
{
    m_store.update([&] {
        m_favorites = change(m_store.stringListValue(favoritesKey()));
        m_store.setStringList(favoritesKey(), m_favorites);
    });
    emit favoritesChanged();
}

void UserLibrary::changeRecents(const std::function<QStringList(const QStringList&)>& change)
{
    m_store.update([&] {
        QStringList recents = change(m_store.stringListValue(recentsKey()));
        const qint64 limit = std::max<qint64>(0, m_preferences.recentsLimit());
        if (recents.size() > limit)
            recents.resize(limit);
        m_recents = recents;
        m_store.setStringList(recentsKey(), m_recents);
    });
    emit recentsChanged();
}

void UserLibrary::recordCopy(const LastCopy& copy)
{
    m_lastCopy = copy;
    m_store.setBytes(lastCopyKey(), copy.toJson());
    emit lastCopyChanged();
    changeRecents([&](const QStringList& stored) {
        QStringList recents{copy.name};
        for (const QString& name : stored) {
            if (name != copy.name)
                recents.append(name);
        }
        return recents;
    });
}

void UserLibrary::toggleFavorite(const QString& name)
{
    changeFavorites([&](QStringList favorites) {
        if (const qsizetype index = favorites.indexOf(name); index >= 0)
            favorites.removeAt(index);
        else
            favorites.append(name);
        return favorites;
    });
}

void UserLibrary::setFavorite(const QStringList& names, bool favorite)
{
    changeFavorites([&](QStringList favorites) {
        for (const QString& name : names) {
            if (favorites.contains(name) != favorite)
                favorite ? favorites.append(name) : void(favorites.removeAll(name));
        }
        return favorites;
    });
}

void UserLibrary::trimRecents()
{
    changeRecents([](const QStringList& recents) { return recents; });
}

void UserLibrary::clearRecents()
{
    changeRecents([](const QStringList&) { return QStringList(); });
}

QByteArray UserLibrary::exportFavorites() const
{
    // QJsonObject keeps its keys sorted, which gives "app", "favorites", "version".
    const QJsonObject file{
        {QStringLiteral("app"), QStringLiteral("Pictray")},
        {QStringLiteral("favorites"), QJsonArray::fromStringList(m_favorites)},
        {QStringLiteral("version"), 1},
    };
    return QJsonDocument(file).toJson(QJsonDocument::Indented);
}

std::optional<QStringList> UserLibrary::importedNames(const QByteArray& data)
{
    if (data.size() > maxImportBytes)
        return std::nullopt;
    // The parser refuses nesting deeper than a fixed limit instead of recursing on.
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(data, &error);
    if (error.error != QJsonParseError::NoError)
        return std::nullopt;
    return namesIn(document);
}

std::optional<int> UserLibrary::importFavorites(const QByteArray& data)
{
    const std::optional<QStringList> names = importedNames(data);
    if (!names)
        return std::nullopt;

    // Checked against the favorites as they stood before, not against each
    // other: a name the file lists twice is taken twice.
    qsizetype taken = 0;
    changeFavorites([&](const QStringList& favorites) {
        const QSet<QString> before(favorites.cbegin(), favorites.cend());
        QStringList result = favorites;
        for (const QString& name : *names) {
            if (!before.contains(name) && m_iconExists(name))
                result.append(name);
        }
        taken = result.size() - favorites.size();
        return result;
    });
    return static_cast<int>(taken);
}

QString UserLibrary::importedMessage(int count)
{
    return QStringLiteral("Imported %1 new favorite%2.")
        .arg(count)
        .arg(count == 1 ? QString() : QStringLiteral("s"));
}

QString UserLibrary::notAnExportMessage()
{
    return QStringLiteral("That file isn\u2019t a Pictray favorites export.");
}

QString UserLibrary::tooLargeMessage()
{
    return QStringLiteral("That file is too large for a Pictray favorites export (over %1 MB).")
        .arg(maxImportBytes / (qint64(1024) * 1024));
}

std::optional<QByteArray> UserLibrary::readImportFile(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("Cannot read %1: %2")
                     .arg(QDir::toNativeSeparators(path), file.errorString());
        return std::nullopt;
    }
    // Read one byte past the limit, which also ends reads of endless devices.
    const QByteArray data = file.read(maxImportBytes + 1);
    if (data.size() > maxImportBytes) {
        *error = tooLargeMessage();
        return std::nullopt;
    }
    if (file.error() != QFileDevice::NoError) {
        *error = QStringLiteral("Cannot read %1: %2")
                     .arg(QDir::toNativeSeparators(path), file.errorString());
        return std::nullopt;
    }
    return data;
}
