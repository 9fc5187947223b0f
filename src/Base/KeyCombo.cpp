#include "KeyCombo.h"

#include "KeyboardLayout.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <cmath>

namespace {

struct ModifierNames {
    quint64 flag;
    const char16_t* macCap;
    const char16_t* macWord;
    const char16_t* pcCap;
    const char16_t* pcWord;
};

// In the order caps and words are listed.
constexpr std::array<ModifierNames, 4> modifierNames{{
    {KeyCombo::controlFlag, u"⌃", u"Control", u"Ctrl", u"Control"},
    {KeyCombo::optionFlag, u"⌥", u"Option", u"Alt", u"Alt"},
    {KeyCombo::shiftFlag, u"⇧", u"Shift", u"Shift", u"Shift"},
    {KeyCombo::commandFlag, u"⌘", u"Command", u"Super", u"Super"},
}};

QStringList modifierTexts(quint64 modifiers, KeyCombo::Rendition rendition, bool spoken)
{
    const bool mac = rendition == KeyCombo::Rendition::mac;
    QStringList texts;
    for (const ModifierNames& names : modifierNames) {
        if (modifiers & names.flag) {
            texts.append(QString::fromUtf16(spoken ? (mac ? names.macWord : names.pcWord)
                                                   : (mac ? names.macCap : names.pcCap)));
        }
    }
    return texts;
}

// Keys that type nothing, named the same on every layout.
constexpr std::array<std::pair<quint32, const char16_t*>, 27> fixedKeyNames{{
    {36, u"↩"},   {76, u"⌤"},   {48, u"⇥"},    {49, u"Space"}, {51, u"⌫"},    {53, u"⎋"},
    {115, u"↖"},  {116, u"⇞"},  {117, u"⌦"},   {119, u"↘"},    {121, u"⇟"},   {122, u"F1"},
    {120, u"F2"}, {99, u"F3"},  {118, u"F4"},  {96, u"F5"},    {97, u"F6"},   {98, u"F7"},
    {100, u"F8"}, {101, u"F9"}, {109, u"F10"}, {103, u"F11"},  {111, u"F12"}, {123, u"←"},
    {124, u"→"},  {125, u"↓"},  {126, u"↑"},
}};

std::optional<quint64> wholeNumber(const QJsonValue& value, double limit)
{
    if (!value.isDouble())
        return std::nullopt;
    const double number = value.toDouble();
    if (number < 0 || number > limit || std::trunc(number) != number)
        return std::nullopt;
    return static_cast<quint64>(number);
}

} // namespace

QStringList KeyCombo::keyCaps(Rendition rendition) const
{
    return keyCaps(rendition, KeyboardLayout::current().get());
}

QStringList KeyCombo::keyCaps(Rendition rendition, const KeyboardLayout* layout) const
{
    QStringList caps = modifierTexts(modifiers, rendition, false);
    caps.append(keyName(keyCode, layout));
    return caps;
}

QString KeyCombo::spoken(Rendition rendition) const
{
    return spoken(rendition, KeyboardLayout::current().get());
}

QString KeyCombo::spoken(Rendition rendition, const KeyboardLayout* layout) const
{
    QStringList words = modifierTexts(modifiers, rendition, true);
    words.append(keyName(keyCode, layout));
    return words.join(u' ');
}

QString KeyCombo::keyName(quint32 keyCode)
{
    return keyName(keyCode, KeyboardLayout::current().get());
}

QString KeyCombo::keyName(quint32 keyCode, const KeyboardLayout* layout)
{
    for (const auto& [code, name] : fixedKeyNames) {
        if (code == keyCode)
            return QString::fromUtf16(name);
    }
    // Key codes are 16-bit; a larger one can only come from a hand-edited
    // settings file, which must not stop the program.
    if (!layout || keyCode > 0xFFFF)
        return QStringLiteral("?");
    const QString text = layout->keyText(keyCode);
    return text.isEmpty() ? QStringLiteral("?") : text.toUpper();
}

QByteArray KeyCombo::toJson() const
{
    const QJsonObject object{
        {QStringLiteral("keyCode"), static_cast<qint64>(keyCode)},
        {QStringLiteral("modifiers"), static_cast<qint64>(modifiers)},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<KeyCombo> KeyCombo::fromJson(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return std::nullopt;
    const QJsonObject object = document.object();
    // JSON numbers are doubles: whole values up to 2^53 are exact.
    const auto code = wholeNumber(object.value(QStringLiteral("keyCode")), 4294967295.0);
    const auto flags = wholeNumber(object.value(QStringLiteral("modifiers")), 9007199254740992.0);
    if (!code || !flags)
        return std::nullopt;
    return KeyCombo{static_cast<quint32>(*code), *flags};
}
