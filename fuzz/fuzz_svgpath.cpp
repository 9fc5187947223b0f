#include "Geometry/SVGPath.h"

#include <QPainterPath>
#include <cstddef>
#include <cstdint>

// Arbitrary bytes as path data. Whatever it returns, the parser must not crash,
// read past the end of the bytes (they are not NUL-terminated), hang or hit
// undefined behaviour, and an error must point into the data or just past it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QPainterPath path;
    const auto error = SVGPath::append(QByteArrayView(data, qsizetype(size)), path);
    if (error && (error->offset < 0 || error->offset > qsizetype(size)))
        __builtin_trap();
    return 0;
}
