#pragma once

#include "Appearance.h"

#include <QtQml/qqml.h>

// The kit's C++ types as QML knows them, declared here so that the classes
// themselves stay free of QML.
struct AppearanceForeign {
    Q_GADGET
    QML_FOREIGN(Appearance)
    QML_NAMED_ELEMENT(Appearance)
    QML_UNCREATABLE("each window's owner hands its appearance to the root view")
};
