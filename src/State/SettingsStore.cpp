#include "SettingsStore.h"

#include <QStandardPaths>
#include <cmath>

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

} // namespace

SettingsStore::SettingsStore(const QString& filePath) : m_settings(filePath, QSettings::IniFormat)
{
}

SettingsStore::~SettingsStore()
{
    m_settings.sync();
}

QString SettingsStore::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Pictray/Pictray.conf");
}

QString SettingsStore::filePath() const
{
    return m_settings.fileName();
}

void SettingsStore::registerDefaults(const QList<std::pair<QString, QVariant>>& defaults)
{
    for (const auto& [key, value] : defaults)
        m_defaults.insert(key, value);
}

bool SettingsStore::contains(const QString& key) const
{
    return m_settings.contains(key);
}

QStringList SettingsStore::userKeys() const
{
    return m_settings.allKeys();
}

void SettingsStore::remove(const QString& key)
{
    m_settings.remove(key);
}

template <typename Parse>
auto SettingsStore::read(const QString& key, Parse parse) const -> decltype(parse(QVariant()))
{
    if (m_settings.contains(key)) {
        if (auto value = parse(m_settings.value(key)))
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
    m_settings.setValue(key, value);
}

void SettingsStore::setInt(const QString& key, qint64 value)
{
    m_settings.setValue(key, value);
}

void SettingsStore::setDouble(const QString& key, double value)
{
    m_settings.setValue(key, value);
}

void SettingsStore::setString(const QString& key, const QString& value)
{
    m_settings.setValue(key, value);
}

void SettingsStore::setBytes(const QString& key, const QByteArray& value)
{
    // QSettings writes an empty array as "@ByteArray()" and reads it back as
    // an empty array, so "no shortcut" survives a restart as present-and-empty.
    m_settings.setValue(key, value);
}

void SettingsStore::setStringList(const QString& key, const QStringList& value)
{
    m_settings.setValue(key, value);
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

bool SettingsStore::sync()
{
    m_settings.sync();
    return m_settings.status() == QSettings::NoError;
}
