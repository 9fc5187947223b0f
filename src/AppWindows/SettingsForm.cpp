#include "SettingsForm.h"

#include "Base/HexColor.h"
#include "Base/PlatformWords.h"
#include "Export/CopyTargets.h"
#include "State/PreferenceRanges.h"

#include <QApplication>

SettingsForm::SettingsForm(Preferences& prefs, IconLibrary& library,
                           const SettingsServices& services, Rendition rendition, QObject* parent)
    : QObject(parent), m_prefs(prefs), m_paster(services.paster), m_rendition(rendition),
      m_choices(new ChoiceSettings(prefs, rendition, this)),
      m_library(new LibrarySettings(library, services.user, services.updater, rendition, this)),
      m_login(new LoginSetting(services.loginItem, QCoreApplication::applicationFilePath(), this)),
      m_pickerShortcut(
          new ShortcutSetting(prefs, services.hotKeys, HotKeyCenter::ID::picker, this)),
      m_copyLastShortcut(
          new ShortcutSetting(prefs, services.hotKeys, HotKeyCenter::ID::copyLast, this)),
      m_beep([] { QApplication::beep(); })
{
    connect(&prefs, &Preferences::recentsLimitChanged, this, &SettingsForm::recentsLimitChanged);
    connect(&prefs, &Preferences::defaultSizeChanged, this, &SettingsForm::defaultSizeChanged);
    connect(&prefs, &Preferences::pngPaddingChanged, this, &SettingsForm::pngPaddingChanged);
    m_paster.installNoteHandler([this] { emit pasteNoteChanged(); });
}

SettingsForm::~SettingsForm()
{
    m_paster.installNoteHandler({});
}

QString SettingsForm::showIconLabel() const
{
    return PlatformWords::text(PlatformWords::Text::showIcon, m_rendition);
}

QString SettingsForm::showIconCaption() const
{
    return PlatformWords::text(PlatformWords::Text::showIconCaption, m_rendition);
}

QString SettingsForm::dragFormatCaption() const
{
    return PlatformWords::text(PlatformWords::Text::dragFormatCaption, m_rendition);
}

QString SettingsForm::dragFeature() const
{
    return PlatformWords::text(PlatformWords::Text::dragFeature, m_rendition);
}

QString SettingsForm::pasteNote() const
{
    return m_paster.note();
}

QString SettingsForm::commitColorText(const QString& text)
{
    const std::optional<QString> color = HexColor::fromTyped(text);
    if (!color) {
        m_beep();
        return m_prefs.defaultColor();
    }
    // Settings keep hexadecimal colours in lower case, as CSS is usually written.
    m_prefs.setDefaultColor(color->startsWith(u'#') ? color->toLower() : *color);
    return m_prefs.defaultColor();
}

// Stored values are read within their ranges, so they fit an int.
int SettingsForm::recentsLimit() const
{
    return int(PreferenceRanges::recentsLimit.clamp(m_prefs.recentsLimit()));
}

void SettingsForm::setRecentsLimit(int limit)
{
    m_prefs.setRecentsLimit(limit);
}

int SettingsForm::defaultSize() const
{
    return int(PreferenceRanges::iconSize.clamp(m_prefs.defaultSize()));
}

void SettingsForm::setDefaultSize(int size)
{
    m_prefs.setDefaultSize(size);
}

int SettingsForm::pngPadding() const
{
    return int(PreferenceRanges::pngPadding.clamp(m_prefs.pngPadding()));
}

void SettingsForm::setPngPadding(int padding)
{
    m_prefs.setPngPadding(padding);
}
