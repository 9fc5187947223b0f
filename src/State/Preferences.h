#pragma once

#include "Base/ExportFormat.h"
#include "Base/KeyCombo.h"
#include "Base/PreferenceOptions.h"
#include "Catalog/Icon.h"
#include "PreferenceList.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <optional>
#include <type_traits>

class SettingsStore;

// What each entry of PICTRAY_PREFERENCES declares. Setters take small values
// by value and the rest by reference.
// clang-format off
#define PICTRAY_PREFERENCE_PROPERTY(Type, name, Name, defaultValue, registered) \
    Q_PROPERTY(Type name READ name WRITE set##Name NOTIFY name##Changed)
#define PICTRAY_PREFERENCE_ACCESSORS(Type, name, Name, defaultValue, registered) \
    Type name() const { return m_##name; } \
    void set##Name(Preferences::Argument<Type> value);
#define PICTRAY_PREFERENCE_SIGNAL(Type, name, Name, defaultValue, registered) void name##Changed();
#define PICTRAY_PREFERENCE_MEMBER(Type, name, Name, defaultValue, registered) Type m_##name;
// clang-format on

// Every user setting (PreferenceList.h), each a property stored under a key of
// the same name.
// An assignment updates the value, emits its change signal and writes it to
// the store, every time, also when the value did not change: there is no save
// step. Registered defaults stay in memory, so the file holds only what the
// user set.
class Preferences : public QObject {
    Q_OBJECT
    PICTRAY_PREFERENCES(PICTRAY_PREFERENCE_PROPERTY)

public:
    template <typename T> using Argument = std::conditional_t<std::is_scalar_v<T>, T, const T&>;

    static constexpr KeyCombo defaultPickerHotKey{34, KeyCombo::controlFlag | KeyCombo::optionFlag};
    static constexpr KeyCombo defaultCopyLastHotKey{8,
                                                    KeyCombo::controlFlag | KeyCombo::optionFlag};

    // Registers the defaults in the store and reads every setting from it.
    explicit Preferences(SettingsStore& store, QObject* parent = nullptr);
    ~Preferences() override;

    // The running program's settings, over SettingsStore::defaultPath().
    static Preferences& shared();
    SettingsStore& store() const { return m_store; }

    PICTRAY_PREFERENCES(PICTRAY_PREFERENCE_ACCESSORS)

    // The PNG formats switched on, 1x before 2x before 3x.
    QList<ExportFormat> enabledPNGFormats() const;

    // Missing: the default; zero-length: no shortcut; undecodable: the default.
    static std::optional<KeyCombo> loadCombo(const SettingsStore& store, const QString& key,
                                             const KeyCombo& defaultCombo);
    // No shortcut is stored as zero-length bytes, distinct from a missing key.
    static void saveCombo(SettingsStore& store, const QString& key,
                          const std::optional<KeyCombo>& combo);

    // Settings by key, as text, for the command line. Values are written as
    // the store holds them: true/false, whole numbers, decimals, strings, enum
    // raw values; a shortcut as its compact JSON, empty for none.
    static QStringList keys();
    static bool hasKey(const QString& key);
    // Every value a setting takes where they can be listed (true and false,
    // an option's raw values); empty for numbers, text and shortcuts.
    static QStringList valueChoices(const QString& key);
    // Empty for an unknown key.
    QString valueText(const QString& key) const;

    // Parses and assigns. Text the reader would not recognise (a bool other
    // than true/false/1/0, a non-number, an enum string that is not one of the
    // raw values, undecodable shortcut JSON) is refused rather than stored:
    // the error message says what was expected.
    std::optional<QString> setValueText(const QString& key, const QString& text);
    // Forgets the user's value, so the default applies again.
    void reset(const QString& key);
    // Reads every setting from the store again (after another process changed
    // the file) and emits the change signal of each one whose value differs.
    // Writes nothing.
    void reload();

signals:
    PICTRAY_PREFERENCES(PICTRAY_PREFERENCE_SIGNAL)

private:
    template <typename T> struct Field;
    // Calls `visit` with the Field of every setting, in list order.
    template <typename Visit> static void forEachField(Visit&& visit);
    // Calls `visit` with the Field of the setting `key`; false for an unknown key.
    template <typename Visit> static bool withField(const QString& key, Visit&& visit);
    // The stored value, or the default where it is missing or refused.
    template <typename T> T read(const Field<T>& field) const;
    template <typename T> void assign(const Field<T>& field, const T& value);

    SettingsStore& m_store;
    PICTRAY_PREFERENCES(PICTRAY_PREFERENCE_MEMBER)
};
