#pragma once

#include "Base/Rendition.h"
#include "ChoiceSettings.h"
#include "LibrarySettings.h"
#include "LoginSetting.h"
#include "SettingsServices.h"
#include "ShortcutSetting.h"
#include "State/Preferences.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

class IconLibrary;

// Everything the settings and onboarding windows bind to. Each control
// writes its setting at once; there is nothing to apply or save.
class SettingsForm : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the window manager hands it to the windows")
    Q_PROPERTY(Preferences* prefs READ prefs CONSTANT)
    Q_PROPERTY(ChoiceSettings* choices READ choices CONSTANT)
    Q_PROPERTY(LibrarySettings* library READ library CONSTANT)
    Q_PROPERTY(LoginSetting* login READ login CONSTANT)
    Q_PROPERTY(ShortcutSetting* pickerShortcut READ pickerShortcut CONSTANT)
    Q_PROPERTY(ShortcutSetting* copyLastShortcut READ copyLastShortcut CONSTANT)
    Q_PROPERTY(QString showIconLabel READ showIconLabel CONSTANT)
    Q_PROPERTY(QString showIconCaption READ showIconCaption CONSTANT)
    Q_PROPERTY(QString dragFormatCaption READ dragFormatCaption CONSTANT)
    Q_PROPERTY(QString dragFeature READ dragFeature CONSTANT)
    Q_PROPERTY(QString pasteNote READ pasteNote NOTIFY pasteNoteChanged)
    // The whole-number settings, as the int QML's controls take.
    Q_PROPERTY(int recentsLimit READ recentsLimit WRITE setRecentsLimit NOTIFY recentsLimitChanged)
    Q_PROPERTY(int defaultSize READ defaultSize WRITE setDefaultSize NOTIFY defaultSizeChanged)
    Q_PROPERTY(int pngPadding READ pngPadding WRITE setPngPadding NOTIFY pngPaddingChanged)

public:
    SettingsForm(Preferences& prefs, IconLibrary& library, const SettingsServices& services,
                 Rendition rendition = hostRendition(), QObject* parent = nullptr);
    ~SettingsForm() override;

    Preferences* prefs() const { return &m_prefs; }
    ChoiceSettings* choices() const { return m_choices; }
    LibrarySettings* library() const { return m_library; }
    LoginSetting* login() const { return m_login; }
    ShortcutSetting* pickerShortcut() const { return m_pickerShortcut; }
    ShortcutSetting* copyLastShortcut() const { return m_copyLastShortcut; }
    QString showIconLabel() const;
    QString showIconCaption() const;
    QString dragFormatCaption() const;
    QString dragFeature() const;
    // Why "Close and paste into front app" only copies here, or what its
    // first paste asks; empty when it just pastes.
    QString pasteNote() const;

    // The default colour field's text, committed: "currentColor" in any
    // case, or a hexadecimal colour with or without "#", stored as "#rrggbb"
    // ("#rrggbbaa" when not opaque). Anything
    // else beeps and is replaced by the stored colour. Returns the text the
    // field shows afterwards.
    Q_INVOKABLE QString commitColorText(const QString& text);

    int recentsLimit() const;
    void setRecentsLimit(int limit);
    int defaultSize() const;
    void setDefaultSize(int size);
    int pngPadding() const;
    void setPngPadding(int padding);

    // For tests: what sounds when a colour is refused.
    void setBeep(std::function<void()> beep) { m_beep = std::move(beep); }

signals:
    void recentsLimitChanged();
    void defaultSizeChanged();
    void pngPaddingChanged();
    void pasteNoteChanged();

private:
    Preferences& m_prefs;
    Paster& m_paster;
    Rendition m_rendition;
    ChoiceSettings* m_choices;
    LibrarySettings* m_library;
    LoginSetting* m_login;
    ShortcutSetting* m_pickerShortcut;
    ShortcutSetting* m_copyLastShortcut;
    std::function<void()> m_beep;
};
