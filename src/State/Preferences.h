#pragma once

#include "Base/KeyCombo.h"
#include "Catalog/Icon.h"
#include "Base/ExportFormat.h"
#include "Base/PreferenceOptions.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <optional>

class SettingsStore;

// Every user setting, each a property stored under a key of the same name.
// An assignment updates the value, emits its change signal and writes it to
// the store, every time, also when the value did not change: there is no save
// step. Registered defaults stay in memory, so the file holds only what the
// user set.
class Preferences : public QObject {
    Q_OBJECT
    Q_PROPERTY(std::optional<KeyCombo> pickerHotKey READ pickerHotKey WRITE setPickerHotKey NOTIFY
                   pickerHotKeyChanged)
    Q_PROPERTY(std::optional<KeyCombo> copyLastHotKey READ copyLastHotKey WRITE setCopyLastHotKey
                   NOTIFY copyLastHotKeyChanged)
    Q_PROPERTY(bool showMenuBarIcon READ showMenuBarIcon WRITE setShowMenuBarIcon NOTIFY
                   showMenuBarIconChanged)
    Q_PROPERTY(PickerPosition pickerPosition READ pickerPosition WRITE setPickerPosition NOTIFY
                   pickerPositionChanged)
    Q_PROPERTY(AfterCopy afterCopy READ afterCopy WRITE setAfterCopy NOTIFY afterCopyChanged)
    Q_PROPERTY(
        AppearanceMode appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged)
    Q_PROPERTY(bool keepLastSearch READ keepLastSearch WRITE setKeepLastSearch NOTIFY
                   keepLastSearchChanged)
    Q_PROPERTY(
        qint64 recentsLimit READ recentsLimit WRITE setRecentsLimit NOTIFY recentsLimitChanged)
    Q_PROPERTY(bool hasCompletedOnboarding READ hasCompletedOnboarding WRITE
                   setHasCompletedOnboarding NOTIFY hasCompletedOnboardingChanged)
    Q_PROPERTY(ExportFormat defaultFormat READ defaultFormat WRITE setDefaultFormat NOTIFY
                   defaultFormatChanged)
    Q_PROPERTY(
        QString defaultColor READ defaultColor WRITE setDefaultColor NOTIFY defaultColorChanged)
    Q_PROPERTY(qint64 defaultSize READ defaultSize WRITE setDefaultSize NOTIFY defaultSizeChanged)
    Q_PROPERTY(
        double defaultStroke READ defaultStroke WRITE setDefaultStroke NOTIFY defaultStrokeChanged)
    Q_PROPERTY(
        IconStyle defaultStyle READ defaultStyle WRITE setDefaultStyle NOTIFY defaultStyleChanged)
    Q_PROPERTY(bool optimizeSVG READ optimizeSVG WRITE setOptimizeSVG NOTIFY optimizeSVGChanged)
    Q_PROPERTY(bool includeSize READ includeSize WRITE setIncludeSize NOTIFY includeSizeChanged)
    Q_PROPERTY(bool tailwindCurrentColor READ tailwindCurrentColor WRITE setTailwindCurrentColor
                   NOTIFY tailwindCurrentColorChanged)
    Q_PROPERTY(bool ariaHidden READ ariaHidden WRITE setAriaHidden NOTIFY ariaHiddenChanged)
    Q_PROPERTY(QString classAttribute READ classAttribute WRITE setClassAttribute NOTIFY
                   classAttributeChanged)
    Q_PROPERTY(QString reactComponentName READ reactComponentName WRITE setReactComponentName NOTIFY
                   reactComponentNameChanged)
    Q_PROPERTY(ReactLanguage reactLanguage READ reactLanguage WRITE setReactLanguage NOTIFY
                   reactLanguageChanged)
    Q_PROPERTY(VueStyle vueStyle READ vueStyle WRITE setVueStyle NOTIFY vueStyleChanged)
    Q_PROPERTY(QString bladePrefix READ bladePrefix WRITE setBladePrefix NOTIFY bladePrefixChanged)
    Q_PROPERTY(bool png1x READ png1x WRITE setPng1x NOTIFY png1xChanged)
    Q_PROPERTY(bool png2x READ png2x WRITE setPng2x NOTIFY png2xChanged)
    Q_PROPERTY(bool png3x READ png3x WRITE setPng3x NOTIFY png3xChanged)
    Q_PROPERTY(PNGBackground pngBackground READ pngBackground WRITE setPngBackground NOTIFY
                   pngBackgroundChanged)
    Q_PROPERTY(qint64 pngPadding READ pngPadding WRITE setPngPadding NOTIFY pngPaddingChanged)
    Q_PROPERTY(DragFormat dragFormat READ dragFormat WRITE setDragFormat NOTIFY dragFormatChanged)
    Q_PROPERTY(bool showCategoryBar READ showCategoryBar WRITE setShowCategoryBar NOTIFY
                   showCategoryBarChanged)

public:
    static constexpr KeyCombo defaultPickerHotKey{34, KeyCombo::controlFlag | KeyCombo::optionFlag};
    static constexpr KeyCombo defaultCopyLastHotKey{8,
                                                    KeyCombo::controlFlag | KeyCombo::optionFlag};

    // Registers the defaults in the store and reads every setting from it.
    explicit Preferences(SettingsStore& store, QObject* parent = nullptr);
    ~Preferences() override;

    // The running program's settings, over SettingsStore::defaultPath().
    static Preferences& shared();
    SettingsStore& store() const { return m_store; }

    std::optional<KeyCombo> pickerHotKey() const { return m_pickerHotKey; }
    std::optional<KeyCombo> copyLastHotKey() const { return m_copyLastHotKey; }
    bool showMenuBarIcon() const { return m_showMenuBarIcon; }
    PickerPosition pickerPosition() const { return m_pickerPosition; }
    AfterCopy afterCopy() const { return m_afterCopy; }
    AppearanceMode appearance() const { return m_appearance; }
    bool keepLastSearch() const { return m_keepLastSearch; }
    qint64 recentsLimit() const { return m_recentsLimit; }
    bool hasCompletedOnboarding() const { return m_hasCompletedOnboarding; }
    ExportFormat defaultFormat() const { return m_defaultFormat; }
    QString defaultColor() const { return m_defaultColor; }
    qint64 defaultSize() const { return m_defaultSize; }
    double defaultStroke() const { return m_defaultStroke; }
    IconStyle defaultStyle() const { return m_defaultStyle; }
    bool optimizeSVG() const { return m_optimizeSVG; }
    bool includeSize() const { return m_includeSize; }
    bool tailwindCurrentColor() const { return m_tailwindCurrentColor; }
    bool ariaHidden() const { return m_ariaHidden; }
    QString classAttribute() const { return m_classAttribute; }
    QString reactComponentName() const { return m_reactComponentName; }
    ReactLanguage reactLanguage() const { return m_reactLanguage; }
    VueStyle vueStyle() const { return m_vueStyle; }
    QString bladePrefix() const { return m_bladePrefix; }
    bool png1x() const { return m_png1x; }
    bool png2x() const { return m_png2x; }
    bool png3x() const { return m_png3x; }
    PNGBackground pngBackground() const { return m_pngBackground; }
    qint64 pngPadding() const { return m_pngPadding; }
    DragFormat dragFormat() const { return m_dragFormat; }
    bool showCategoryBar() const { return m_showCategoryBar; }

    void setPickerHotKey(const std::optional<KeyCombo>& value);
    void setCopyLastHotKey(const std::optional<KeyCombo>& value);
    void setShowMenuBarIcon(bool value);
    void setPickerPosition(PickerPosition value);
    void setAfterCopy(AfterCopy value);
    void setAppearance(AppearanceMode value);
    void setKeepLastSearch(bool value);
    void setRecentsLimit(qint64 value);
    void setHasCompletedOnboarding(bool value);
    void setDefaultFormat(ExportFormat value);
    void setDefaultColor(const QString& value);
    void setDefaultSize(qint64 value);
    void setDefaultStroke(double value);
    void setDefaultStyle(IconStyle value);
    void setOptimizeSVG(bool value);
    void setIncludeSize(bool value);
    void setTailwindCurrentColor(bool value);
    void setAriaHidden(bool value);
    void setClassAttribute(const QString& value);
    void setReactComponentName(const QString& value);
    void setReactLanguage(ReactLanguage value);
    void setVueStyle(VueStyle value);
    void setBladePrefix(const QString& value);
    void setPng1x(bool value);
    void setPng2x(bool value);
    void setPng3x(bool value);
    void setPngBackground(PNGBackground value);
    void setPngPadding(qint64 value);
    void setDragFormat(DragFormat value);
    void setShowCategoryBar(bool value);

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
    // Empty for an unknown key.
    QString valueText(const QString& key) const;

    enum class Scope { store, thisRunOnly };
    // Parses and assigns. Text the reader would not recognise (a bool other
    // than true/false/1/0, a non-number, an enum string that is not one of the
    // raw values, undecodable shortcut JSON) is refused rather than stored:
    // the error message says what was expected. thisRunOnly changes the value
    // and emits, but writes nothing.
    std::optional<QString> setValueText(const QString& key, const QString& text,
                                        Scope scope = Scope::store);
    // Forgets the user's value, so the default applies again.
    void reset(const QString& key);

signals:
    void pickerHotKeyChanged();
    void copyLastHotKeyChanged();
    void showMenuBarIconChanged();
    void pickerPositionChanged();
    void afterCopyChanged();
    void appearanceChanged();
    void keepLastSearchChanged();
    void recentsLimitChanged();
    void hasCompletedOnboardingChanged();
    void defaultFormatChanged();
    void defaultColorChanged();
    void defaultSizeChanged();
    void defaultStrokeChanged();
    void defaultStyleChanged();
    void optimizeSVGChanged();
    void includeSizeChanged();
    void tailwindCurrentColorChanged();
    void ariaHiddenChanged();
    void classAttributeChanged();
    void reactComponentNameChanged();
    void reactLanguageChanged();
    void vueStyleChanged();
    void bladePrefixChanged();
    void png1xChanged();
    void png2xChanged();
    void png3xChanged();
    void pngBackgroundChanged();
    void pngPaddingChanged();
    void dragFormatChanged();
    void showCategoryBarChanged();

private:
    template <typename T> struct Field;
    static const auto& fields();
    template <typename T> static const Field<T>& fieldOf(T Preferences::*member);
    template <typename T> void assign(T Preferences::*member, const T& value);

    SettingsStore& m_store;
    bool m_writesToStore = true;
    std::optional<KeyCombo> m_pickerHotKey;
    std::optional<KeyCombo> m_copyLastHotKey;
    bool m_showMenuBarIcon;
    PickerPosition m_pickerPosition;
    AfterCopy m_afterCopy;
    AppearanceMode m_appearance;
    bool m_keepLastSearch;
    qint64 m_recentsLimit;
    bool m_hasCompletedOnboarding;
    ExportFormat m_defaultFormat;
    QString m_defaultColor;
    qint64 m_defaultSize;
    double m_defaultStroke;
    IconStyle m_defaultStyle;
    bool m_optimizeSVG;
    bool m_includeSize;
    bool m_tailwindCurrentColor;
    bool m_ariaHidden;
    QString m_classAttribute;
    QString m_reactComponentName;
    ReactLanguage m_reactLanguage;
    VueStyle m_vueStyle;
    QString m_bladePrefix;
    bool m_png1x;
    bool m_png2x;
    bool m_png3x;
    PNGBackground m_pngBackground;
    qint64 m_pngPadding;
    DragFormat m_dragFormat;
    bool m_showCategoryBar;
};
