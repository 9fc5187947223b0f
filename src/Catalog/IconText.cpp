#include "IconText.h"

#include <algorithm>
#include <string_view>

namespace IconText {

bool isName(QByteArrayView name)
{
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
    });
}

bool isPathData(QByteArrayView data)
{
    static constexpr std::string_view allowed = "MmZzLlHhVvCcSsQqTtAa0123456789+-.eE, \t\n\r\f";
    return std::all_of(data.begin(), data.end(),
                       [](char c) { return allowed.find(c) != std::string_view::npos; });
}

} // namespace IconText
