#pragma once

class IconLibrary;
class QQmlEngine;

// Makes the QML modules Pictray.Kit and Pictray.Picker available to the
// engine. Call once per engine before loading qrc:/Pictray/Picker/PopoverRoot.qml.
void registerPictrayQml(QQmlEngine& engine, IconLibrary& library);
