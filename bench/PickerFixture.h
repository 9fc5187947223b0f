#pragma once

#include "Catalog/IconLibrary.h"
#include "Export/CopyService.h"
#include "NullTargets.h"
#include "Picker/PickerModel.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"

#include <QTemporaryDir>

// The picker's model over the shipped catalogue, with settings in a
// throw-away folder and copies that go nowhere.
struct PickerFixture {
    QTemporaryDir dir;
    SettingsStore store{dir.filePath(QStringLiteral("settings.conf"))};
    Preferences prefs{store};
    IconLibrary library{{IconLibrary::shippedFilePath(), {}}};
    UserLibrary user{store, prefs, [](const QString&) { return true; }};
    NullTargets targets;
    CopyService copy{library, user, prefs, targets, targets, targets};
    PickerModel model{library, user, prefs, &copy};
};
