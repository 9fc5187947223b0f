#pragma once

class IconLibrary;
class QQmlEngine;

// Makes the QML module Pictray.Kit available to the engine and gives its
// icon glyphs the library to draw from. Call once per engine before loading
// anything that imports the kit.
void registerKitQml(QQmlEngine& engine, IconLibrary& library);
