// Arbitrary bytes as a downloaded catalogue file: the version peek and the
// full decode must never crash, hang or read out of bounds.
#include "Catalog/CatalogueCodec.h"
#include "Catalog/IconDrawing.h"
#include "Catalog/IconLibrary.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    (void)IconLibrary::peekVersion(bytes);
    if (const auto file = CatalogueCodec::decode(bytes)) {
        // Whatever decodes must also be searchable and drawable.
        IconSearch index(file->icons);
        (void)index.search(QStringLiteral("a b"), file->icons);
        for (const Icon& icon : file->icons) {
            (void)icon.tagLine();
            for (const IconStyle style : allCases<IconStyle>()) {
                if (const auto paths = icon.paths(style))
                    (void)IconDrawing::of(*paths, icon.paints(style), style);
            }
        }
    }
    return 0;
}
