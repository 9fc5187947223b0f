#include "SettingsStore.h"

#include "FileLock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QTemporaryFile>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

// QSettings hands back what was set in this run with its own type, and what
// was read from the file as strings (or a byte array or string list), so every
// parser accepts both.

bool isScalar(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QString:
        return true;
    default:
        return false;
    }
}

std::optional<bool> variantToBool(const QVariant& value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    return SettingsStore::parseBool(value.toString());
}

std::optional<qint64> variantToInt(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::QString:
        return SettingsStore::parseInt(value.toString());
    default:
        return std::nullopt;
    }
}

std::optional<double> variantToDouble(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::QString:
        return SettingsStore::parseDouble(value.toString());
    default:
        return std::nullopt;
    }
}

std::optional<QString> variantToString(const QVariant& value)
{
    // An unquoted comma in a hand-edited file turns a string into a list.
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().join(u", ");
    if (isScalar(value))
        return value.toString();
    return std::nullopt;
}

std::optional<QByteArray> variantToBytes(const QVariant& value)
{
    if (value.typeId() == QMetaType::QByteArray)
        return value.toByteArray();
    if (isScalar(value))
        return value.toString().toUtf8();
    return std::nullopt;
}

std::optional<QStringList> variantToStringList(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QStringList:
        return value.toStringList();
    case QMetaType::QString: {
        // QSettings writes a one-element list as a plain string.
        const QString text = value.toString();
        return text.isEmpty() ? QStringList() : QStringList{text};
    }
    case QMetaType::UnknownType:
        // QSettings writes an empty list as @Invalid().
        return QStringList();
    default:
        return std::nullopt;
    }
}

// Why the settings file could not be replaced, in the system's words: the
// folder refuses a new file (QSettings writes a copy and renames it), the
// file refuses writing, or the disk is full.
QString whyNotWritable(const QString& path)
{
    const QFileInfo file(path);
    QTemporaryFile probe(file.absolutePath() + QStringLiteral("/.pictray-probe-XXXXXX"));
    if (!probe.open())
        return probe.errorString();
    QFile existing(path);
    if (file.exists() && !existing.open(QIODevice::Append))
        return existing.errorString();
    if (QStorageInfo(file.absolutePath()).bytesAvailable() == 0)
        return QString::fromLocal8Bit(std::strerror(ENOSPC));
    return QStringLiteral("the file could not be replaced");
}

// QSettings' cache of a file it read goes by size and modification time to
// the millisecond, so two versions written within one millisecond with the
// same size would look alike to a process that read the first. Every write
// therefore moves the time on past the one it replaced.
void markNewVersion(const QString& path, const QDateTime& replaced)
{
    QFile file(path);
    if (!replaced.isValid() || !file.exists() ||
        file.fileTime(QFile::FileModificationTime) > replaced)
        return;
    if (file.open(QIODevice::Append))
        file.setFileTime(replaced.addMSecs(1), QFile::FileModificationTime);
}

} // namespace

SettingsStore::SettingsStore(const QString& filePath) : m_filePath(filePath)
{
    reload();
}

SettingsStore::~SettingsStore() = default;

void SettingsStore::reload()
{
    m_settings.reset();
    m_settings = std::make_unique<QSettings>(m_filePath, QSettings::IniFormat);
    // Only a read of the file reports it; QSettings' cache skips an unchanged file.
    m_hasUnreadableLine |= m_settings->status() == QSettings::FormatError;
}

bool SettingsStore::refresh()
{
    QFile file(m_filePath);
    if (file.open(QIODevice::ReadOnly) && file.size() > 0) {
        if (!file.seek(file.size() - 1) || file.read(1) != "\n")
            return false;
    }
    // QSettings shares what it parsed between its objects over one file, so
    // the store cannot keep the previous reading: its callers keep their
    // values instead, and the next write keeps the damaged file beside.
    reload();
    return m_settings->status() == QSettings::NoError;
}

QString SettingsStore::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Pictray/Pictray.conf");
}

QString SettingsStore::filePath() const
{
    return m_settings->fileName();
}

void SettingsStore::registerDefaults(const QList<std::pair<QString, QVariant>>& defaults)
{
    for (const auto& [key, value] : defaults)
        m_defaults.insert(key, value);
}

bool SettingsStore::contains(const QString& key) const
{
    return m_settings->contains(key);
}

QStringList SettingsStore::userKeys() const
{
    return m_settings->allKeys();
}

void SettingsStore::remove(const QString& key)
{
    update([&] { m_settings->remove(key); });
}

void SettingsStore::set(const QString& key, const QVariant& value)
{
    update([&] { m_settings->setValue(key, value); });
}

template <typename Parse>
auto SettingsStore::read(const QString& key, Parse parse) const -> decltype(parse(QVariant()))
{
    if (m_settings->contains(key)) {
        if (auto value = parse(m_settings->value(key)))
            return value;
    }
    if (const auto found = m_defaults.constFind(key); found != m_defaults.cend())
        return parse(*found);
    return std::nullopt;
}

bool SettingsStore::boolValue(const QString& key) const
{
    return read(key, variantToBool).value_or(false);
}

qint64 SettingsStore::intValue(const QString& key) const
{
    return read(key, variantToInt).value_or(0);
}

double SettingsStore::doubleValue(const QString& key) const
{
    return read(key, variantToDouble).value_or(0.0);
}

std::optional<QString> SettingsStore::stringValue(const QString& key) const
{
    return read(key, variantToString);
}

std::optional<QByteArray> SettingsStore::bytesValue(const QString& key) const
{
    return read(key, variantToBytes);
}

QStringList SettingsStore::stringListValue(const QString& key) const
{
    return read(key, variantToStringList).value_or(QStringList());
}

void SettingsStore::setBool(const QString& key, bool value)
{
    set(key, value);
}

void SettingsStore::setInt(const QString& key, qint64 value)
{
    set(key, value);
}

void SettingsStore::setDouble(const QString& key, double value)
{
    set(key, value);
}

void SettingsStore::setString(const QString& key, const QString& value)
{
    set(key, value);
}

void SettingsStore::setBytes(const QString& key, const QByteArray& value)
{
    // QSettings writes an empty array as "@ByteArray()" and reads it back as
    // an empty array, so "no shortcut" survives a restart as present-and-empty.
    set(key, value);
}

void SettingsStore::setStringList(const QString& key, const QStringList& value)
{
    set(key, value);
}

std::optional<bool> SettingsStore::parseBool(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.compare(u"true", Qt::CaseInsensitive) == 0 || trimmed == u"1")
        return true;
    if (trimmed.compare(u"false", Qt::CaseInsensitive) == 0 || trimmed == u"0")
        return false;
    return std::nullopt;
}

std::optional<qint64> SettingsStore::parseInt(const QString& text)
{
    bool ok = false;
    const qint64 number = text.trimmed().toLongLong(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

std::optional<double> SettingsStore::parseDouble(const QString& text)
{
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    // NaN or infinity would poison every size and stroke computed from it.
    return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<QString> SettingsStore::update(const std::function<void()>& change)
{
    if (m_updating) {
        change();
        return std::nullopt;
    }
    const QScopedValueRollback updating(m_updating, true);
    const QString folder = QFileInfo(m_filePath).absolutePath();
    QDir().mkpath(folder);
    QString reason;
    const std::optional<FileLock> lock =
        FileLock::acquire(m_filePath + QStringLiteral(".writers"), &reason);
    if (!lock) {
        m_writeError =
            QStringLiteral("Cannot write %1: %2").arg(QDir::toNativeSeparators(m_filePath), reason);
        return m_writeError;
    }
    reload();
    // QSettings drops a line it cannot parse when it writes the file again:
    // the file as it was is kept beside it first.
    if (std::exchange(m_hasUnreadableLine, false)) {
        QFile::remove(m_filePath + QStringLiteral(".damaged"));
        QFile::copy(m_filePath, m_filePath + QStringLiteral(".damaged"));
    }
    const QDateTime replaced = QFileInfo(m_filePath).lastModified();
    change();
    m_settings->sync();
    m_writeError = writeFailure();
    if (!m_writeError)
        markNewVersion(m_filePath, replaced);
    return m_writeError;
}

std::optional<QString> SettingsStore::writeFailure() const
{
    // A malformed line read before is a FormatError, which QSettings' status
    // keeps in place of a later AccessError; the file is checked as well.
    const QFileInfo file(m_filePath);
    const bool refused = m_settings->status() == QSettings::AccessError ||
                         (file.exists() && !file.isWritable()) ||
                         !QFileInfo(file.absolutePath()).isWritable();
    if (!refused)
        return std::nullopt;
    return QStringLiteral("Cannot write %1: %2")
        .arg(QDir::toNativeSeparators(m_filePath), whyNotWritable(m_filePath));
}
