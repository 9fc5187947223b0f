#pragma once

#include "Catalog/Icon.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace TestData {

// A file of the repository, by its path from the top.
QString sourcePath(const QString& relative);

// Any file's bytes; empty when it cannot be read.
QByteArray readFile(const QString& path);
// Writes the bytes, making the folders on the way; stops the test when it cannot.
void writeFile(const QString& path, const QByteArray& bytes);

// The committed catalogue of the real icon set.
QString shippedCatalogue();

// The icons' names, in order: what a comparison of results reads best as.
QStringList names(const IconList& icons);

} // namespace TestData
