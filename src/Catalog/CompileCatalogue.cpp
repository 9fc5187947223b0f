// Build step: turns the shipped JSON catalogue into the compiled form that
// the program reads in place.
//   pictray-compile-catalogue tabler-icons.json tabler-icons.catalogue

#include "CatalogueCodec.h"
#include "CompiledCatalogue.h"

#include <QFile>
#include <QSaveFile>
#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: pictray-compile-catalogue CATALOGUE.json OUTPUT\n", stderr);
        return 2;
    }
    QFile input(QString::fromLocal8Bit(argv[1]));
    if (!input.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 1;
    }
    const QByteArray json = input.readAll();
    QString error;
    const auto file = CatalogueCodec::decode(json, &error);
    if (!file) {
        std::fprintf(stderr, "%s: %s\n", argv[1], qPrintable(error));
        return 1;
    }
    const QByteArray compiled = CompiledCatalogue::compile(*file);
    // Checked before it is written: a build must not ship what cannot be read.
    if (!CompiledCatalogue::read(compiled, &error)) {
        std::fprintf(stderr, "the compiled catalogue does not read back: %s\n", qPrintable(error));
        return 1;
    }
    QSaveFile output(QString::fromLocal8Bit(argv[2]));
    if (!output.open(QIODevice::WriteOnly) || output.write(compiled) != compiled.size() ||
        !output.commit()) {
        std::fprintf(stderr, "cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
