// Arbitrary bytes as a favorites import file: reading it must never crash,
// and the names it yields, exported again, must read back the same.
#include "State/UserLibrary.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto names = UserLibrary::importedNames(bytes);
    if (!names)
        return 0;
    const QJsonObject file{{QStringLiteral("app"), QStringLiteral("Pictray")},
                           {QStringLiteral("favorites"), QJsonArray::fromStringList(*names)},
                           {QStringLiteral("version"), 1}};
    if (UserLibrary::importedNames(QJsonDocument(file).toJson()) != names)
        std::abort(); // an export of what was imported would not import the same
    return 0;
}
