#pragma once

#include "State/Preferences.h"

#include <QtQml/qqml.h>

// The preferences as the windows' QML knows them, declared here so that the
// State layer stays free of QML.
struct WindowPreferencesForeign {
    Q_GADGET
    QML_FOREIGN(Preferences)
    QML_NAMED_ELEMENT(Preferences)
    QML_UNCREATABLE("the settings form hands the preferences to the windows")
};
