#pragma once

#include "RawValue.h"

#include <QList>
#include <QString>
#include <optional>

// The copy formats, in the order every menu and list shows them.
enum class ExportFormat { svg, jsx, vue, blade, tailwind, dataURI, png1, png2, png3 };

enum class ReactLanguage { jsx, tsx };
// `template` is a C++ keyword; the stored raw value is still "template".
enum class VueStyle { sfc, templateOnly };
enum class PNGBackground { transparent, white, black };
enum class DragFormat { bestMatch, svg, png2x };

template <> struct RawValues<ExportFormat> {
    static constexpr std::array<const char*, 9> names{
        "svg", "jsx", "vue", "blade", "tailwind", "dataURI", "png1", "png2", "png3"};
};
template <> struct RawValues<ReactLanguage> {
    static constexpr std::array<const char*, 2> names{"jsx", "tsx"};
};
template <> struct RawValues<VueStyle> {
    static constexpr std::array<const char*, 2> names{"sfc", "template"};
};
template <> struct RawValues<PNGBackground> {
    static constexpr std::array<const char*, 3> names{"transparent", "white", "black"};
};
template <> struct RawValues<DragFormat> {
    static constexpr std::array<const char*, 3> names{"bestMatch", "svg", "png2x"};
};

namespace Formats {

// The jsx case names itself after the React language in use, so a stored
// default format survives a change of language.
QString label(ExportFormat format, ReactLanguage language);

// 1, 2 or 3 for the image formats; nullopt for the text formats.
std::optional<int> pngScale(ExportFormat format);
inline bool isImage(ExportFormat format)
{
    return pngScale(format).has_value();
}

// The six text formats, in case order.
QList<ExportFormat> codeFormats();

QString label(ReactLanguage language);
QString label(VueStyle style);
QString label(PNGBackground background);
QString label(DragFormat format);

} // namespace Formats
