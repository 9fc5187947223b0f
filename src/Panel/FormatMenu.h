#pragma once

#include "Base/ExportFormat.h"
#include "Base/Rendition.h"

#include <QKeySequence>
#include <QMenu>

class IconLibrary;
class Preferences;

// The picker's "Copy as" menu: the six code formats, the PNG sizes switched
// on in the settings, and a way to the copy settings. Each format shows its
// catalogue icon, its shortcut in the panel, and a check on the format the
// picker copies in now. Built for one opening.
class FormatMenu : public QMenu {
    Q_OBJECT

public:
    FormatMenu(const Preferences& prefs, const IconLibrary& library, ExportFormat current,
               Rendition rendition, QWidget* parent = nullptr);

    // The panel's shortcut for the format: Alt+1…6 for code (Control on a
    // Mac), Ctrl+1…3 for PNG.
    static QKeySequence shortcutFor(ExportFormat format, Rendition rendition);
    // The catalogue icon that stands for the format.
    static QString iconNameFor(ExportFormat format);

signals:
    void formatChosen(ExportFormat format);
    void customizeRequested();

private:
    void addFormat(ExportFormat format, const Preferences& prefs, const IconLibrary& library,
                   ExportFormat current, Rendition rendition);
};
