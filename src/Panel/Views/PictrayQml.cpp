#include "PictrayQml.h"

#include "Ui/Kit/KitQml.h"

#include <QtQml/QQmlExtensionPlugin>

// A static plugin: importing it here links it into whatever calls
// registerPictrayQml.
Q_IMPORT_QML_PLUGIN(PictrayPickerPlugin)

void registerPictrayQml(QQmlEngine& engine, IconLibrary& library)
{
    registerKitQml(engine, library);
}
