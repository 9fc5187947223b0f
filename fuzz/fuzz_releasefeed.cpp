// Arbitrary bytes as the release feed: parsing must never crash, and every
// release it yields has a version that compares and only web links.
#include "Catalog/ReleaseFeed.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto releases = ReleaseFeed::parse(bytes, nullptr);
    if (!releases)
        return 0;
    for (const ReleaseFeed::Release& release : *releases) {
        for (const QUrl& link : {release.notesURL, release.downloadURL}) {
            if (!link.isEmpty() && !link.scheme().startsWith(QLatin1String("http")))
                std::abort(); // a feed must not make the program open anything but the web
        }
    }
    ReleaseFeed::newerThan(*releases, QStringLiteral("1.0.0"));
    return 0;
}
