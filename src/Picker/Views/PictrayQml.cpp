#include "PictrayQml.h"

#include "Windows/Kit/IconGlyph.h"

#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>

// Both modules are static plugins: importing them here links them into
// whatever calls registerPictrayQml.
Q_IMPORT_QML_PLUGIN(PictrayKitPlugin)
Q_IMPORT_QML_PLUGIN(PictrayPickerPlugin)

void registerPictrayQml(QQmlEngine& engine, IconLibrary& library)
{
    // The modules' files lie under qrc:/Pictray/...
    engine.addImportPath(QStringLiteral("qrc:/"));
    IconGlyph::setLibrary(engine, library);
}
