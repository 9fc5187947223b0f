#pragma once

#include "Export/CopyTargets.h"
#include "Export/IconCopier.h"

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

class IconLibrary;
class Preferences;
class QMimeData;
class UserLibrary;

// The one place where an icon leaves the program: clipboard copies, drag
// payloads, repeating the last copy and pasting into the previous window.
// Every copy and drag is recorded in the user library; copies also show a
// heads-up message.
class CopyService : public QObject, public IconCopier {
    Q_OBJECT

public:
    CopyService(IconLibrary& library, UserLibrary& user, Preferences& preferences,
                Clipboard& clipboard, HeadsUp& headsUp, Paster& paster, QObject* parent = nullptr);

    // True when the clipboard now holds the icon. An image that cannot be
    // rendered leaves the clipboard empty, records nothing and says nothing.
    bool copy(const IconExport& item, ExportFormat format) override;
    // The icon with the default style (outline when it has no filled form),
    // size, stroke and colour, in the given or the default format.
    bool copyWithDefaults(const Icon& icon, std::optional<ExportFormat> format = std::nullopt);
    // Repeats the stored last copy; nothing when there is none or its icon
    // left the catalogue.
    bool copyLastAgain();

    // The drag payload for the drag format setting; the caller owns it.
    QMimeData* itemProvider(const IconExport& item);
    // The package name made safe as a file name inside one folder.
    static QString safeFileStem(const QString& packageName);

    // Posts the paste keystroke 0.12 s from now, once the panel is gone and the
    // previous window has the keyboard again. False, posting nothing, where
    // synthetic input is not possible.
    bool pasteIntoFrontApp();

    // Runs the paste later; the default waits the 0.12 s on a timer.
    using Scheduler = std::function<void(std::function<void()>)>;
    void setPasteScheduler(Scheduler scheduler) { m_schedulePaste = std::move(scheduler); }

private:
    void record(const IconExport& item, ExportFormat format);
    // The file's path, or empty when it could not be written safely.
    static QString writeDragFile(const QString& name, const QByteArray& data);

    IconLibrary& m_library;
    UserLibrary& m_user;
    Preferences& m_preferences;
    Clipboard& m_clipboard;
    HeadsUp& m_headsUp;
    Paster& m_paster;
    Scheduler m_schedulePaste;
};
