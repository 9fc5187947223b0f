#include "KitQml.h"

#include "IconGlyph.h"

#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>

// The module is a static plugin: importing it here links it into whatever
// calls registerKitQml.
Q_IMPORT_QML_PLUGIN(PictrayKitPlugin)

void registerKitQml(QQmlEngine& engine, IconLibrary& library)
{
    // The modules' files lie under qrc:/Pictray/...
    engine.addImportPath(QStringLiteral("qrc:/"));
    IconGlyph::setLibrary(engine, library);
}
