#include "ChoiceSettings.h"

#include "State/Preferences.h"

namespace {

template <typename E> bool isCase(int index)
{
    return index >= 0 && index < int(RawValues<E>::names.size());
}

template <typename E, typename Label> QStringList labels(Label&& label)
{
    QStringList list;
    for (const E value : allCases<E>())
        list.append(label(value));
    return list;
}

QString styleLabel(IconStyle style)
{
    return style == IconStyle::filled ? QStringLiteral("Filled") : QStringLiteral("Outline");
}

} // namespace

// clang-format off
#define PICTRAY_CHOICE_DEFINITION(Type, name, Name) \
    int ChoiceSettings::name() const { return int(m_prefs.name()); } \
    void ChoiceSettings::set##Name(int index) \
    { \
        if (isCase<Type>(index)) \
            m_prefs.set##Name(Type(index)); \
    }
// clang-format on
PICTRAY_CHOICE_SETTINGS(PICTRAY_CHOICE_DEFINITION)

ChoiceSettings::ChoiceSettings(Preferences& prefs, Rendition rendition, QObject* parent)
    : QObject(parent), m_prefs(prefs), m_rendition(rendition)
{
#define PICTRAY_CHOICE_CONNECT(Type, name, Name)                                                   \
    connect(&prefs, &Preferences::name##Changed, this, &ChoiceSettings::name##Changed);
    PICTRAY_CHOICE_SETTINGS(PICTRAY_CHOICE_CONNECT)
#undef PICTRAY_CHOICE_CONNECT
    connect(&prefs, &Preferences::reactLanguageChanged, this, &ChoiceSettings::labelsChanged);
}

QStringList ChoiceSettings::pickerPositionLabels() const
{
    return labels<PickerPosition>(
        [this](PickerPosition p) { return PreferenceLabels::label(p, m_rendition); });
}

QStringList ChoiceSettings::afterCopyLabels() const
{
    return labels<AfterCopy>([](AfterCopy a) { return PreferenceLabels::label(a); });
}

QStringList ChoiceSettings::appearanceLabels() const
{
    return labels<AppearanceMode>([](AppearanceMode m) { return PreferenceLabels::label(m); });
}

QStringList ChoiceSettings::defaultFormatLabels() const
{
    const ReactLanguage language = m_prefs.reactLanguage();
    return labels<ExportFormat>([language](ExportFormat f) { return Formats::label(f, language); });
}

QStringList ChoiceSettings::defaultStyleLabels() const
{
    return labels<IconStyle>(styleLabel);
}

QStringList ChoiceSettings::reactLanguageLabels() const
{
    return labels<ReactLanguage>([](ReactLanguage l) { return Formats::label(l); });
}

QStringList ChoiceSettings::vueStyleLabels() const
{
    return labels<VueStyle>([](VueStyle s) { return Formats::label(s); });
}

QStringList ChoiceSettings::pngBackgroundLabels() const
{
    return labels<PNGBackground>([](PNGBackground b) { return Formats::label(b); });
}

QStringList ChoiceSettings::dragFormatLabels() const
{
    return labels<DragFormat>([](DragFormat f) { return Formats::label(f); });
}
