// Arbitrary bytes as the files of an icon set release: the metadata and node
// converters must never crash, and whatever they build must decode again.
#include "Catalog/CatalogueCodec.h"
#include "Catalog/PackageConverter.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString error;
    const auto converted =
        PackageConverter::convert(QStringLiteral("1.0"), bytes, bytes, bytes, &error);
    if (converted && !CatalogueCodec::decode(*converted))
        std::abort(); // the converter wrote a file the library cannot read
    return 0;
}
