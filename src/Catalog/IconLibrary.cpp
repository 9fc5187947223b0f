#include "IconLibrary.h"

#include "CatalogueCodec.h"
#include "CompiledCatalogue.h"
#include "ReleaseVersion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QResource>
#include <QSaveFile>
#include <QSet>
#include <QStandardPaths>
#include <QStringDecoder>
#include <algorithm>
#include <vector>

namespace {

// A compiled-in resource stored uncompressed, read in place without a copy;
// null for any other file.
QByteArray compiledInBytes(const QString& path)
{
    if (!path.startsWith(u':'))
        return {};
    const QResource resource(path);
    if (!resource.isValid() || resource.compressionAlgorithm() != QResource::NoCompression)
        return {};
    return QByteArray::fromRawData(reinterpret_cast<const char*>(resource.data()),
                                   static_cast<qsizetype>(resource.size()));
}

// The build compiles a compiled-in JSON file into the form read in place,
// beside it; null when there is none.
QByteArray compiledFormOf(const QString& jsonPath)
{
    QString compiledPath = jsonPath;
    if (compiledPath.endsWith(u".json"))
        compiledPath.chop(5);
    return compiledInBytes(compiledPath + QStringLiteral(".catalogue"));
}

std::optional<QByteArray> readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

std::optional<QString> versionAtStart(QByteArrayView head)
{
    // Not stateless: a character cut in two by the end of the window waits in
    // the decoder's state instead of counting as an error.
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(head);
    if (decoder.hasError())
        return std::nullopt;
    static constexpr QStringView key = u"\"version\":\"";
    for (qsizetype at = text.indexOf(key); at >= 0; at = text.indexOf(key, at + 1)) {
        const qsizetype start = at + key.size();
        const qsizetype end = text.indexOf(u'"', start);
        if (end > start)
            return text.sliced(start, end - start);
    }
    return std::nullopt;
}

} // namespace

IconLibrary::IconLibrary(Sources sources, QObject* parent)
    : IconLibrary(std::move(sources), Making::atLoad, parent)
{
}

IconLibrary::IconLibrary(Sources sources, Making making, QObject* parent)
    : QObject(parent), m_sources(std::move(sources)), m_making(making)
{
    load();
}

IconLibrary& IconLibrary::shared()
{
    static auto* library = new IconLibrary(defaultSources(), Making::onDemand);
    return *library;
}

IconLibrary::Sources IconLibrary::defaultSources()
{
    return {shippedFilePath(), downloadedFilePath()};
}

QString IconLibrary::shippedFilePath()
{
    return QStringLiteral(":/tabler-icons.json");
}

QString IconLibrary::downloadedFilePath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(folder);
    return folder + QStringLiteral("/tabler-icons.json");
}

std::optional<QString> IconLibrary::peekVersion(const QByteArray& data)
{
    if (auto version =
            versionAtStart(QByteArrayView(data).first(std::min<qsizetype>(data.size(), 64))))
        return version;
    return CatalogueCodec::decodeVersionOnly(data);
}

std::vector<IconLibrary::Candidate> IconLibrary::candidates(const Sources& sources)
{
    std::vector<Candidate> found;
    for (const QString& path : {sources.shippedPath, sources.downloadedPath}) {
        if (path.isEmpty())
            continue;
        if (QByteArray bytes = compiledInBytes(path); !bytes.isNull())
            found.push_back({path, bytes, peekVersion(bytes), true});
        else if (auto read = readFile(path))
            found.push_back({path, *read, peekVersion(*read)});
    }
    // Highest version first; on equal versions the shipped file stays ahead.
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        return a.version && (!b.version || compareCatalogueVersions(*a.version, *b.version) > 0);
    });
    return found;
}

QByteArray IconLibrary::compiledForm(const Candidate& candidate)
{
    return candidate.compiledIn ? compiledFormOf(candidate.path) : QByteArray();
}

QByteArray IconLibrary::compiledInCatalogue()
{
    return compiledFormOf(shippedFilePath());
}

bool IconLibrary::defer(const Candidate& candidate)
{
    if (m_making != Making::onDemand)
        return false;
    const QByteArray compiled = compiledForm(candidate);
    const auto version = CompiledCatalogue::version(compiled);
    if (compiled.isNull() || !version || version != candidate.version)
        return false;
    setIcons(File{*version, {}});
    m_deferred = compiled;
    return true;
}

const IconLibrary& IconLibrary::made() const
{
    if (!m_deferred.isNull()) {
        // Not const in truth: the icons are made once, on first need.
        auto* self = const_cast<IconLibrary*>(this);
        auto file = CompiledCatalogue::read(m_deferred);
        self->m_deferred.clear();
        if (file)
            self->setIcons(std::move(*file));
    }
    return *this;
}

std::optional<CatalogueFile> IconLibrary::decodeCandidate(const Candidate& candidate,
                                                          QString* reason)
{
    if (const QByteArray compiled = compiledForm(candidate); !compiled.isNull()) {
        auto file = CompiledCatalogue::read(compiled);
        if (file && file->version == candidate.version)
            return file;
    }
    return CatalogueCodec::decode(candidate.bytes, reason, &TextArena::forThisRun());
}

void IconLibrary::load()
{
    m_loadProblem.clear();
    for (const Candidate& candidate : candidates(m_sources)) {
        if (candidate.version && defer(candidate)) {
            m_loadedPath = candidate.path;
            emit catalogueChanged();
            return;
        }
        QString reason = QStringLiteral("it has no version");
        auto file = candidate.version ? decodeCandidate(candidate, &reason) : std::nullopt;
        if (file) {
            m_loadedPath = candidate.path;
            apply(std::move(*file));
            return;
        }
        setAside(candidate.path, reason);
    }
    m_loadedPath.clear();
    apply(File{});
}

bool IconLibrary::refresh()
{
    for (const Candidate& candidate : candidates(m_sources)) {
        if (!candidate.version)
            continue;
        if (candidate.path == m_loadedPath && *candidate.version == m_version)
            return false;
        QString reason;
        if (auto file = decodeCandidate(candidate, &reason)) {
            m_loadedPath = candidate.path;
            apply(std::move(*file));
            return true;
        }
    }
    return false;
}

void IconLibrary::setAside(const QString& path, const QString& reason)
{
    // The shipped catalogue is part of the program and stays where it is.
    if (path != m_sources.downloadedPath)
        return;
    const QString aside = path + QStringLiteral(".damaged");
    QFile::remove(aside);
    const bool moved = QFile::rename(path, aside);
    m_loadProblem =
        QStringLiteral("%1 is damaged (%2); %3")
            .arg(QDir::toNativeSeparators(path), reason,
                 moved ? QStringLiteral("it was moved to %1").arg(QDir::toNativeSeparators(aside))
                       : QStringLiteral("it could not be moved aside"));
}

QStringList IconLibrary::iconNames(const Sources& sources)
{
    // The first candidate whose names read, as load() would pick it; nothing
    // is moved aside from here (completion must not change files).
    for (const Candidate& candidate : candidates(sources)) {
        if (!candidate.version)
            continue;
        if (auto names = CatalogueCodec::decodeNames(candidate.bytes))
            return *names;
    }
    return {};
}

void IconLibrary::apply(File file)
{
    setIcons(std::move(file));
    emit catalogueChanged();
}

void IconLibrary::setIcons(File file)
{
    m_deferred.clear();
    m_icons = std::move(file.icons);
    m_version = std::move(file.version);
    m_byName.clear();
    m_byName.reserve(m_icons.size());
    QSet<QString> categories;
    for (qsizetype i = 0; i < m_icons.size(); ++i) {
        if (!m_byName.contains(m_icons[i].id())) // the first of two equal names wins
            m_byName.insert(m_icons[i].id(), i);
        categories.insert(m_icons[i].category());
    }
    m_categories = QStringList(categories.cbegin(), categories.cend());
    std::sort(m_categories.begin(), m_categories.end());
    m_search.reset();
    m_typos.reset();
    {
        const QMutexLocker lock(&m_cacheLock);
        m_pathCache.clear();
    }
}

bool IconLibrary::install(const QByteArray& data, QString* error)
{
    auto file = save(data, m_sources.downloadedPath, error);
    if (file)
        adopt(std::move(*file));
    return file.has_value();
}

std::optional<IconLibrary::File> IconLibrary::save(const QByteArray& data, const QString& path,
                                                   QString* error)
{
    QString reason;
    auto file = CatalogueCodec::decode(data, &reason, &TextArena::forThisRun());
    if (!file) {
        if (error)
            *error = QStringLiteral("The downloaded icon set is damaged: %1.").arg(reason);
        return std::nullopt;
    }
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(data) != data.size() || !out.commit()) {
        if (error)
            *error = QStringLiteral("Could not save %1: %2").arg(path, out.errorString());
        return std::nullopt;
    }
    return file;
}

void IconLibrary::adopt(File saved)
{
    m_loadedPath = m_sources.downloadedPath;
    apply(std::move(saved));
}

const IconSearch& IconLibrary::searchIndex() const
{
    if (!m_search)
        m_search.emplace(made().m_icons);
    return *m_search;
}

IconList IconLibrary::typoMatches(QStringView query, int limit) const
{
    if (!m_typos)
        m_typos.emplace(made().m_icons);
    return m_typos->matches(query, limit);
}

IconList IconLibrary::suggestions(QStringView query, int limit) const
{
    IconList result = typoMatches(query, limit);
    for (const Icon& icon : nearMatches(query, limit).icons) {
        if (result.size() >= limit)
            break;
        const bool known = std::any_of(result.cbegin(), result.cend(),
                                       [&](const Icon& other) { return other.id() == icon.id(); });
        if (!known)
            result.append(icon);
    }
    return result;
}

int IconLibrary::outlineCount() const
{
    const IconList& icons = made().m_icons;
    return static_cast<int>(std::count_if(icons.cbegin(), icons.cend(), [](const Icon& icon) {
        return icon.has(IconStyle::outline);
    }));
}

int IconLibrary::filledCount() const
{
    const IconList& icons = made().m_icons;
    return static_cast<int>(std::count_if(icons.cbegin(), icons.cend(), [](const Icon& icon) {
        return icon.has(IconStyle::filled);
    }));
}

Icon IconLibrary::icon(QStringView name) const
{
    if (!m_deferred.isNull())
        return CompiledCatalogue::find(m_deferred, name);
    const auto it = m_byName.constFind(name.toString());
    return it == m_byName.cend() ? Icon() : m_icons[*it];
}

std::optional<IconDrawing> IconLibrary::iconDrawing(const Icon& icon, IconStyle style) const
{
    // A filled request for an icon without a filled form draws its outline.
    if (style == IconStyle::filled && !icon.has(IconStyle::filled))
        style = IconStyle::outline;
    if (!icon.has(style))
        return std::nullopt;
    const QString key = icon.id() + (style == IconStyle::filled ? QStringLiteral("\x1F"
                                                                                 "f")
                                                                : QStringLiteral("\x1F"
                                                                                 "o"));
    {
        const QMutexLocker lock(&m_cacheLock);
        if (const IconDrawing* cached = m_pathCache.object(key))
            return *cached;
    }
    // Built outside the lock: two threads may build the same path, the last store wins.
    const auto paths = icon.paths(style);
    if (!paths)
        return std::nullopt;
    IconDrawing drawing = IconDrawing::of(*paths, icon.paints(style), style);
    const QMutexLocker lock(&m_cacheLock);
    qsizetype elements = 0;
    for (const IconDrawing::Layer& layer : drawing.layers)
        elements += layer.path.elementCount();
    m_pathCache.insert(key, new IconDrawing(drawing), std::max<qsizetype>(1, elements));
    return drawing;
}

QString IconLibrary::number(qint64 value)
{
    QString digits = QString::number(value < 0 ? -value : value);
    for (qsizetype at = digits.size() - 3; at > 0; at -= 3)
        digits.insert(at, u',');
    return value < 0 ? u'-' + digits : digits;
}
