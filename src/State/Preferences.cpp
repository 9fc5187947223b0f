#include "Preferences.h"

#include "Base/HexColor.h"
#include "PreferenceRanges.h"
#include "SettingsStore.h"

#include <QLocale>

namespace {

// How each setting type is read from the store, written to it, registered
// as a default and spelled as text.
template <typename T> struct Codec;

template <> struct Codec<bool> {
    static bool read(const SettingsStore& store, const QString& key, bool)
    {
        return store.boolValue(key);
    }
    static void write(SettingsStore& store, const QString& key, bool value)
    {
        store.setBool(key, value);
    }
    static QVariant stored(bool value) { return value; }
    static QString text(bool value)
    {
        return value ? QStringLiteral("true") : QStringLiteral("false");
    }
    static std::optional<bool> parse(const QString& text) { return SettingsStore::parseBool(text); }
    static QString expected() { return QStringLiteral("true or false"); }
    static QStringList choices() { return {QStringLiteral("true"), QStringLiteral("false")}; }
};

template <> struct Codec<qint64> {
    static qint64 read(const SettingsStore& store, const QString& key, qint64)
    {
        return store.intValue(key);
    }
    static void write(SettingsStore& store, const QString& key, qint64 value)
    {
        store.setInt(key, value);
    }
    static QVariant stored(qint64 value) { return value; }
    static QString text(qint64 value) { return QString::number(value); }
    static std::optional<qint64> parse(const QString& text)
    {
        return SettingsStore::parseInt(text);
    }
    static QString expected() { return QStringLiteral("a whole number"); }
};

template <> struct Codec<double> {
    static double read(const SettingsStore& store, const QString& key, double)
    {
        return store.doubleValue(key);
    }
    static void write(SettingsStore& store, const QString& key, double value)
    {
        store.setDouble(key, value);
    }
    static QVariant stored(double value) { return value; }
    // Shortest exact form, always with a decimal point or exponent: "2.0", "1.5".
    static QString text(double value)
    {
        QString text = QString::number(value, 'g', QLocale::FloatingPointShortest);
        if (!text.contains(u'.') && !text.contains(u'e'))
            text += QStringLiteral(".0");
        return text;
    }
    static std::optional<double> parse(const QString& text)
    {
        return SettingsStore::parseDouble(text);
    }
    static QString expected() { return QStringLiteral("a number"); }
};

template <> struct Codec<QString> {
    static QString read(const SettingsStore& store, const QString& key, const QString& fallback)
    {
        return store.stringValue(key).value_or(fallback);
    }
    static void write(SettingsStore& store, const QString& key, const QString& value)
    {
        store.setString(key, value);
    }
    static QVariant stored(const QString& value) { return value; }
    static QString text(const QString& value) { return value; }
    static std::optional<QString> parse(const QString& text) { return text; }
    static QString expected() { return QString(); }
};

// Enums are matched exactly against their raw values; anything else reads as
// the setting's fallback case.
template <typename E>
requires std::is_enum_v<E>
struct Codec<E> {
    static E read(const SettingsStore& store, const QString& key, E fallback)
    {
        return fromRawValue<E>(store.stringValue(key).value_or(QString())).value_or(fallback);
    }
    static void write(SettingsStore& store, const QString& key, E value)
    {
        store.setString(key, rawValue(value));
    }
    static QVariant stored(E value) { return rawValue(value); }
    static QString text(E value) { return rawValue(value); }
    static std::optional<E> parse(const QString& text) { return fromRawValue<E>(text); }
    static QStringList choices()
    {
        QStringList names;
        for (const E value : allCases<E>())
            names.append(rawValue(value));
        return names;
    }
    static QString expected()
    {
        return QStringLiteral("one of ") + choices().join(QStringLiteral(", "));
    }
};

template <> struct Codec<std::optional<KeyCombo>> {
    using Value = std::optional<KeyCombo>;
    static Value read(const SettingsStore& store, const QString& key, const Value& fallback)
    {
        return Preferences::loadCombo(store, key, *fallback);
    }
    static void write(SettingsStore& store, const QString& key, const Value& value)
    {
        Preferences::saveCombo(store, key, value);
    }
    static QVariant stored(const Value&) { return QVariant(); }
    static QString text(const Value& value)
    {
        return value ? QString::fromUtf8(value->toJson()) : QString();
    }
    static std::optional<Value> parse(const QString& text)
    {
        if (text.trimmed().isEmpty())
            return std::optional<Value>(std::in_place);
        if (auto combo = KeyCombo::fromJson(text.toUtf8()))
            return std::optional<Value>(combo);
        return std::nullopt;
    }
    static QString expected()
    {
        return QStringLiteral(R"(a shortcut such as {"keyCode":34,"modifiers":786432}, )"
                              "or an empty value for none");
    }
};

// A number brought into its setting's range; anything else as it is.
template <typename T> T withinRange(QStringView key, T value)
{
    if constexpr (std::is_same_v<T, qint64> || std::is_same_v<T, double>) {
        if (const auto range = PreferenceRanges::forKey(key))
            return range->clamp(value);
    }
    return value;
}

template <typename T> bool inRange(QStringView key, const T& value)
{
    if constexpr (std::is_same_v<T, qint64> || std::is_same_v<T, double>) {
        if (const auto range = PreferenceRanges::forKey(key))
            return range->contains(static_cast<double>(value));
    }
    return true;
}

template <typename T> QString rangeText(QStringView key)
{
    const auto range = PreferenceRanges::forKey(key);
    if (!range)
        return {};
    return QStringLiteral(" from %1 to %2").arg(range->min).arg(range->max);
}

// Settings that take less than their type allows. The default colour goes
// into every snippet as it is, so it must be a colour the export knows.
struct Restriction {
    QStringView key;
    bool (*accepts)(QStringView);
    QStringView expected;
};
constexpr Restriction restrictions[] = {
    {u"defaultColor", HexColor::isColorValue,
     u"currentColor or a hexadecimal colour such as #ff0000"},
};

const Restriction* restrictionOf(QStringView key)
{
    for (const Restriction& restriction : restrictions) {
        if (restriction.key == key)
            return &restriction;
    }
    return nullptr;
}

template <typename T> bool accepted(QStringView key, const T& value)
{
    if constexpr (std::is_same_v<T, QString>) {
        const Restriction* restriction = restrictionOf(key);
        return !restriction || restriction->accepts(value);
    } else {
        Q_UNUSED(key);
        Q_UNUSED(value);
        return true;
    }
}

template <typename T> QString expectedFor(QStringView key)
{
    const Restriction* restriction = restrictionOf(key);
    return restriction ? restriction->expected.toString() : Codec<T>::expected();
}

} // namespace

template <typename T> struct Preferences::Field {
    QStringView key;
    T Preferences::*member;
    void (Preferences::*changed)();
    // The registered default, and the value an unreadable stored value gives.
    T defaultValue;
    bool registered;
};

// The Field of one entry of PICTRAY_PREFERENCES.
// clang-format off
#define PICTRAY_PREFERENCE_FIELD(Type, name, Name, defaultValue, registered) \
    Field<Type>{u"" #name, &Preferences::m_##name, &Preferences::name##Changed, defaultValue, registered}
// clang-format on

template <typename Visit> void Preferences::forEachField(Visit&& visit)
{
#define PICTRAY_VISIT_PREFERENCE(...) visit(PICTRAY_PREFERENCE_FIELD(__VA_ARGS__));
    PICTRAY_PREFERENCES(PICTRAY_VISIT_PREFERENCE)
#undef PICTRAY_VISIT_PREFERENCE
}

template <typename Visit> bool Preferences::withField(const QString& key, Visit&& visit)
{
    bool found = false;
    forEachField([&](const auto& field) {
        if (!found && field.key == key) {
            found = true;
            visit(field);
        }
    });
    return found;
}

Preferences::Preferences(SettingsStore& store, QObject* parent) : QObject(parent), m_store(store)
{
    QList<std::pair<QString, QVariant>> defaults;
    forEachField([&](const auto& field) {
        using T = std::remove_cvref_t<decltype(field.defaultValue)>;
        if (field.registered)
            defaults.append({field.key.toString(), Codec<T>::stored(field.defaultValue)});
    });
    m_store.registerDefaults(defaults);

    // Straight into the members: reading emits nothing and writes nothing.
    forEachField([&](const auto& field) { this->*field.member = read(field); });
}

Preferences::~Preferences() = default;

Preferences& Preferences::shared()
{
    static SettingsStore store(SettingsStore::defaultPath());
    static Preferences preferences(store);
    return preferences;
}

template <typename T> T Preferences::read(const Field<T>& field) const
{
    // A value edited outside the program that the setting would refuse reads
    // as the default, like a value of the wrong type.
    T value = Codec<T>::read(m_store, field.key.toString(), field.defaultValue);
    return accepted(field.key, value) ? withinRange(field.key, value) : field.defaultValue;
}

template <typename T> void Preferences::assign(const Field<T>& field, const T& value)
{
    this->*field.member = withinRange(field.key, value);
    emit(this->*field.changed)();
    // The value as it stands after the subscribers ran.
    Codec<T>::write(m_store, field.key.toString(), this->*field.member);
}

#define PICTRAY_PREFERENCE_SETTER(Type, name, Name, defaultValue, registered)                      \
    void Preferences::set##Name(Argument<Type> value)                                              \
    {                                                                                              \
        assign(PICTRAY_PREFERENCE_FIELD(Type, name, Name, defaultValue, registered), value);       \
    }
PICTRAY_PREFERENCES(PICTRAY_PREFERENCE_SETTER)
#undef PICTRAY_PREFERENCE_SETTER

QList<ExportFormat> Preferences::enabledPNGFormats() const
{
    QList<ExportFormat> formats;
    if (m_png1x)
        formats.append(ExportFormat::png1);
    if (m_png2x)
        formats.append(ExportFormat::png2);
    if (m_png3x)
        formats.append(ExportFormat::png3);
    return formats;
}

std::optional<KeyCombo> Preferences::loadCombo(const SettingsStore& store, const QString& key,
                                               const KeyCombo& defaultCombo)
{
    const std::optional<QByteArray> data = store.bytesValue(key);
    if (!data)
        return defaultCombo;
    if (data->isEmpty())
        return std::nullopt;
    return KeyCombo::fromJson(*data).value_or(defaultCombo);
}

void Preferences::saveCombo(SettingsStore& store, const QString& key,
                            const std::optional<KeyCombo>& combo)
{
    store.setBytes(key, combo ? combo->toJson() : QByteArray());
}

QStringList Preferences::keys()
{
    QStringList keys;
    forEachField([&](const auto& field) { keys.append(field.key.toString()); });
    return keys;
}

bool Preferences::hasKey(const QString& key)
{
    return withField(key, [](const auto&) {});
}

QStringList Preferences::valueChoices(const QString& key)
{
    QStringList choices;
    withField(key, [&](const auto& field) {
        using T = std::remove_cvref_t<decltype(field.defaultValue)>;
        if constexpr (requires { Codec<T>::choices(); })
            choices = Codec<T>::choices();
    });
    return choices;
}

QString Preferences::valueText(const QString& key) const
{
    QString text;
    withField(key, [&](const auto& field) {
        using T = std::remove_cvref_t<decltype(field.defaultValue)>;
        text = Codec<T>::text(this->*field.member);
    });
    return text;
}

std::optional<QString> Preferences::setValueText(const QString& key, const QString& text)
{
    std::optional<QString> error = QStringLiteral("Unknown setting \"%1\".").arg(key);
    withField(key, [&](const auto& field) {
        using T = std::remove_cvref_t<decltype(field.defaultValue)>;
        const std::optional<T> value = Codec<T>::parse(text);
        if (!value || !inRange(field.key, *value) || !accepted(field.key, *value)) {
            error = QStringLiteral("Invalid value \"%1\" for %2: expected %3%4.")
                        .arg(text, key, expectedFor<T>(field.key), rangeText<T>(field.key));
            return;
        }
        error.reset();
        assign(field, *value);
    });
    return error;
}

void Preferences::reload()
{
    // All values first, then the signals: a subscriber sees the whole change.
    QList<void (Preferences::*)()> changed;
    forEachField([&](const auto& field) {
        auto value = read(field);
        if (value != this->*field.member) {
            this->*field.member = std::move(value);
            changed.append(field.changed);
        }
    });
    for (const auto signal : changed)
        emit(this->*signal)();
}

void Preferences::reset(const QString& key)
{
    withField(key, [&](const auto& field) {
        m_store.remove(key);
        this->*field.member = read(field);
        emit(this->*field.changed)();
    });
}
