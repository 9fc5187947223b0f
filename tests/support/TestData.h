#pragma once

#include <QByteArray>
#include <QString>

namespace TestData {

// A file of the repository, by its path from the top.
QString sourcePath(const QString& relative);
QByteArray readSourceFile(const QString& relative);

// The committed catalogue of the real icon set.
QString shippedCatalogue();

} // namespace TestData
