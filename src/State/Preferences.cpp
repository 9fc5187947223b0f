#include "Preferences.h"

#include "SettingsStore.h"

#include <QLocale>
#include <QScopedValueRollback>
#include <array>
#include <variant>

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
    static QString expected()
    {
        QStringList names;
        for (const E value : allCases<E>())
            names.append(rawValue(value));
        return QStringLiteral("one of ") + names.join(QStringLiteral(", "));
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

} // namespace

template <typename T> struct Preferences::Field {
    QStringView key;
    T Preferences::*member;
    void (Preferences::*changed)();
    // The registered default, and the value an unreadable stored value gives.
    T defaultValue;
    bool registered;
};

const auto& Preferences::fields()
{
    using AnyField =
        std::variant<Field<std::optional<KeyCombo>>, Field<bool>, Field<qint64>, Field<double>,
                     Field<QString>, Field<PickerPosition>, Field<AfterCopy>, Field<AppearanceMode>,
                     Field<ExportFormat>, Field<IconStyle>, Field<ReactLanguage>, Field<VueStyle>,
                     Field<PNGBackground>, Field<DragFormat>>;
    // In the order of the settings window and of `prefs list`.
    static const std::array<AnyField, 30> table{
        Field<std::optional<KeyCombo>>{u"pickerHotKey", &Preferences::m_pickerHotKey,
                                       &Preferences::pickerHotKeyChanged, defaultPickerHotKey,
                                       false},
        Field<std::optional<KeyCombo>>{u"copyLastHotKey", &Preferences::m_copyLastHotKey,
                                       &Preferences::copyLastHotKeyChanged, defaultCopyLastHotKey,
                                       false},
        Field<bool>{u"showMenuBarIcon", &Preferences::m_showMenuBarIcon,
                    &Preferences::showMenuBarIconChanged, true, true},
        Field<PickerPosition>{u"pickerPosition", &Preferences::m_pickerPosition,
                              &Preferences::pickerPositionChanged, PickerPosition::underMenuBarIcon,
                              true},
        Field<AfterCopy>{u"afterCopy", &Preferences::m_afterCopy, &Preferences::afterCopyChanged,
                         AfterCopy::close, true},
        Field<AppearanceMode>{u"appearance", &Preferences::m_appearance,
                              &Preferences::appearanceChanged, AppearanceMode::system, true},
        Field<bool>{u"keepLastSearch", &Preferences::m_keepLastSearch,
                    &Preferences::keepLastSearchChanged, false, true},
        Field<qint64>{u"recentsLimit", &Preferences::m_recentsLimit,
                      &Preferences::recentsLimitChanged, 24, true},
        Field<bool>{u"hasCompletedOnboarding", &Preferences::m_hasCompletedOnboarding,
                    &Preferences::hasCompletedOnboardingChanged, false, false},
        Field<ExportFormat>{u"defaultFormat", &Preferences::m_defaultFormat,
                            &Preferences::defaultFormatChanged, ExportFormat::jsx, true},
        Field<QString>{u"defaultColor", &Preferences::m_defaultColor,
                       &Preferences::defaultColorChanged, QStringLiteral("currentColor"), true},
        Field<qint64>{u"defaultSize", &Preferences::m_defaultSize, &Preferences::defaultSizeChanged,
                      24, true},
        Field<double>{u"defaultStroke", &Preferences::m_defaultStroke,
                      &Preferences::defaultStrokeChanged, 2.0, true},
        Field<IconStyle>{u"defaultStyle", &Preferences::m_defaultStyle,
                         &Preferences::defaultStyleChanged, IconStyle::outline, true},
        Field<bool>{u"optimizeSVG", &Preferences::m_optimizeSVG, &Preferences::optimizeSVGChanged,
                    true, true},
        Field<bool>{u"includeSize", &Preferences::m_includeSize, &Preferences::includeSizeChanged,
                    true, true},
        Field<bool>{u"tailwindCurrentColor", &Preferences::m_tailwindCurrentColor,
                    &Preferences::tailwindCurrentColorChanged, true, true},
        Field<bool>{u"ariaHidden", &Preferences::m_ariaHidden, &Preferences::ariaHiddenChanged,
                    false, true},
        Field<QString>{u"classAttribute", &Preferences::m_classAttribute,
                       &Preferences::classAttributeChanged, QStringLiteral("icon icon-tabler"),
                       true},
        Field<QString>{u"reactComponentName", &Preferences::m_reactComponentName,
                       &Preferences::reactComponentNameChanged, QStringLiteral("Icon{Name}"), true},
        Field<ReactLanguage>{u"reactLanguage", &Preferences::m_reactLanguage,
                             &Preferences::reactLanguageChanged, ReactLanguage::tsx, true},
        Field<VueStyle>{u"vueStyle", &Preferences::m_vueStyle, &Preferences::vueStyleChanged,
                        VueStyle::sfc, true},
        Field<QString>{u"bladePrefix", &Preferences::m_bladePrefix,
                       &Preferences::bladePrefixChanged, QStringLiteral("x-tabler-"), true},
        Field<bool>{u"png1x", &Preferences::m_png1x, &Preferences::png1xChanged, true, true},
        Field<bool>{u"png2x", &Preferences::m_png2x, &Preferences::png2xChanged, true, true},
        Field<bool>{u"png3x", &Preferences::m_png3x, &Preferences::png3xChanged, false, true},
        Field<PNGBackground>{u"pngBackground", &Preferences::m_pngBackground,
                             &Preferences::pngBackgroundChanged, PNGBackground::transparent, true},
        Field<qint64>{u"pngPadding", &Preferences::m_pngPadding, &Preferences::pngPaddingChanged, 0,
                      true},
        Field<DragFormat>{u"dragFormat", &Preferences::m_dragFormat,
                          &Preferences::dragFormatChanged, DragFormat::bestMatch, true},
        Field<bool>{u"showCategoryBar", &Preferences::m_showCategoryBar,
                    &Preferences::showCategoryBarChanged, true, true},
    };
    return table;
}

template <typename T> const Preferences::Field<T>& Preferences::fieldOf(T Preferences::*member)
{
    for (const auto& any : fields()) {
        if (const auto* field = std::get_if<Field<T>>(&any); field && field->member == member)
            return *field;
    }
    Q_UNREACHABLE();
}

namespace {

template <typename Table>
auto findField(const Table& table, const QString& key) -> const typename Table::value_type*
{
    for (const auto& any : table) {
        if (std::visit([&](const auto& field) { return field.key == key; }, any))
            return &any;
    }
    return nullptr;
}

} // namespace

Preferences::Preferences(SettingsStore& store, QObject* parent) : QObject(parent), m_store(store)
{
    QList<std::pair<QString, QVariant>> defaults;
    for (const auto& any : fields()) {
        std::visit(
            [&](const auto& field) {
                using T = std::remove_cvref_t<decltype(field.defaultValue)>;
                if (field.registered)
                    defaults.append({field.key.toString(), Codec<T>::stored(field.defaultValue)});
            },
            any);
    }
    m_store.registerDefaults(defaults);

    // Straight into the members: reading emits nothing and writes nothing.
    for (const auto& any : fields()) {
        std::visit(
            [&](const auto& field) {
                using T = std::remove_cvref_t<decltype(field.defaultValue)>;
                this->*field.member =
                    Codec<T>::read(m_store, field.key.toString(), field.defaultValue);
            },
            any);
    }
}

Preferences::~Preferences() = default;

Preferences& Preferences::shared()
{
    static SettingsStore store(SettingsStore::defaultPath());
    static Preferences preferences(store);
    return preferences;
}

template <typename T> void Preferences::assign(T Preferences::*member, const T& value)
{
    const Field<T>& field = fieldOf(member);
    this->*member = value;
    emit(this->*field.changed)();
    // The value as it stands after the subscribers ran.
    if (m_writesToStore)
        Codec<T>::write(m_store, field.key.toString(), this->*member);
}

void Preferences::setPickerHotKey(const std::optional<KeyCombo>& value)
{
    assign(&Preferences::m_pickerHotKey, value);
}
void Preferences::setCopyLastHotKey(const std::optional<KeyCombo>& value)
{
    assign(&Preferences::m_copyLastHotKey, value);
}
void Preferences::setShowMenuBarIcon(bool value)
{
    assign(&Preferences::m_showMenuBarIcon, value);
}
void Preferences::setPickerPosition(PickerPosition value)
{
    assign(&Preferences::m_pickerPosition, value);
}
void Preferences::setAfterCopy(AfterCopy value)
{
    assign(&Preferences::m_afterCopy, value);
}
void Preferences::setAppearance(AppearanceMode value)
{
    assign(&Preferences::m_appearance, value);
}
void Preferences::setKeepLastSearch(bool value)
{
    assign(&Preferences::m_keepLastSearch, value);
}
void Preferences::setRecentsLimit(qint64 value)
{
    assign(&Preferences::m_recentsLimit, value);
}
void Preferences::setHasCompletedOnboarding(bool value)
{
    assign(&Preferences::m_hasCompletedOnboarding, value);
}
void Preferences::setDefaultFormat(ExportFormat value)
{
    assign(&Preferences::m_defaultFormat, value);
}
void Preferences::setDefaultColor(const QString& value)
{
    assign(&Preferences::m_defaultColor, value);
}
void Preferences::setDefaultSize(qint64 value)
{
    assign(&Preferences::m_defaultSize, value);
}
void Preferences::setDefaultStroke(double value)
{
    assign(&Preferences::m_defaultStroke, value);
}
void Preferences::setDefaultStyle(IconStyle value)
{
    assign(&Preferences::m_defaultStyle, value);
}
void Preferences::setOptimizeSVG(bool value)
{
    assign(&Preferences::m_optimizeSVG, value);
}
void Preferences::setIncludeSize(bool value)
{
    assign(&Preferences::m_includeSize, value);
}
void Preferences::setTailwindCurrentColor(bool value)
{
    assign(&Preferences::m_tailwindCurrentColor, value);
}
void Preferences::setAriaHidden(bool value)
{
    assign(&Preferences::m_ariaHidden, value);
}
void Preferences::setClassAttribute(const QString& value)
{
    assign(&Preferences::m_classAttribute, value);
}
void Preferences::setReactComponentName(const QString& value)
{
    assign(&Preferences::m_reactComponentName, value);
}
void Preferences::setReactLanguage(ReactLanguage value)
{
    assign(&Preferences::m_reactLanguage, value);
}
void Preferences::setVueStyle(VueStyle value)
{
    assign(&Preferences::m_vueStyle, value);
}
void Preferences::setBladePrefix(const QString& value)
{
    assign(&Preferences::m_bladePrefix, value);
}
void Preferences::setPng1x(bool value)
{
    assign(&Preferences::m_png1x, value);
}
void Preferences::setPng2x(bool value)
{
    assign(&Preferences::m_png2x, value);
}
void Preferences::setPng3x(bool value)
{
    assign(&Preferences::m_png3x, value);
}
void Preferences::setPngBackground(PNGBackground value)
{
    assign(&Preferences::m_pngBackground, value);
}
void Preferences::setPngPadding(qint64 value)
{
    assign(&Preferences::m_pngPadding, value);
}
void Preferences::setDragFormat(DragFormat value)
{
    assign(&Preferences::m_dragFormat, value);
}
void Preferences::setShowCategoryBar(bool value)
{
    assign(&Preferences::m_showCategoryBar, value);
}

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
    for (const auto& any : fields())
        keys.append(std::visit([](const auto& field) { return field.key.toString(); }, any));
    return keys;
}

bool Preferences::hasKey(const QString& key)
{
    return findField(fields(), key) != nullptr;
}

QString Preferences::valueText(const QString& key) const
{
    const auto* any = findField(fields(), key);
    if (!any)
        return QString();
    return std::visit(
        [&](const auto& field) {
            using T = std::remove_cvref_t<decltype(field.defaultValue)>;
            return Codec<T>::text(this->*field.member);
        },
        *any);
}

std::optional<QString> Preferences::setValueText(const QString& key, const QString& text,
                                                 Scope scope)
{
    const auto* any = findField(fields(), key);
    if (!any)
        return QStringLiteral("Unknown setting \"%1\".").arg(key);
    return std::visit(
        [&](const auto& field) -> std::optional<QString> {
            using T = std::remove_cvref_t<decltype(field.defaultValue)>;
            const std::optional<T> value = Codec<T>::parse(text);
            if (!value) {
                return QStringLiteral("Invalid value \"%1\" for %2: expected %3.")
                    .arg(text, key, Codec<T>::expected());
            }
            const QScopedValueRollback writes(m_writesToStore,
                                              m_writesToStore && scope == Scope::store);
            assign(field.member, *value);
            return std::nullopt;
        },
        *any);
}

void Preferences::reset(const QString& key)
{
    const auto* any = findField(fields(), key);
    if (!any)
        return;
    m_store.remove(key);
    std::visit(
        [&](const auto& field) {
            using T = std::remove_cvref_t<decltype(field.defaultValue)>;
            this->*field.member = Codec<T>::read(m_store, key, field.defaultValue);
            emit(this->*field.changed)();
        },
        *any);
}
