#pragma once

#include "Base/ExportFormat.h"
#include "Base/Rendition.h"
#include "OfferedFormats.h"

#include <QMenu>

class IconLibrary;
class Preferences;

// The picker's "Copy as" menu: the offered formats and a way to the copy
// settings. Each format shows its catalogue icon, its key in the panel, and
// a check on the format the picker copies in now. Built for one opening.
class FormatMenu : public QMenu {
    Q_OBJECT

public:
    FormatMenu(const Preferences& prefs, const IconLibrary& library, ExportFormat current,
               Rendition rendition, QWidget* parent = nullptr);

    // Where a menu of this size opens for a button (both on the screen):
    // under it, or over it where the screen ends below, and never past the
    // screen's sides, so it stays on the panel's screen.
    static QPoint popupPosition(const QRect& button, const QSize& menu, const QRect& screen);

signals:
    void formatChosen(ExportFormat format);
    void customizeRequested();

private:
    void addFormat(const OfferedFormat& entry, const IconLibrary& library, ExportFormat current);
};
