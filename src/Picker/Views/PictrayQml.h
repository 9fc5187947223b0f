#pragma once

class IconLibrary;
class QQmlEngine;

// Makes the QML modules Pictray.Kit and Pictray.Picker available to the
// engine and gives its icon glyphs the library to draw from. Call once per
// engine before loading qrc:/Pictray/Picker/PopoverRoot.qml or any window
// that uses the kit.
void registerPictrayQml(QQmlEngine& engine, IconLibrary& library);
