#include "IconText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace IconText {
namespace {

// A byte table rather than a search of the allowed characters: every byte of
// a catalogue's path data (megabytes) passes through here on each load.
constexpr std::array<bool, 256> pathDataBytes = [] {
    std::array<bool, 256> table{};
    for (const char c : std::string_view("MmZzLlHhVvCcSsQqTtAa0123456789+-.eE, \t\n\r\f"))
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

} // namespace

bool isName(QByteArrayView name)
{
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
    });
}

bool isPathData(QByteArrayView data)
{
    return std::all_of(data.begin(), data.end(),
                       [](char c) { return pathDataBytes[static_cast<unsigned char>(c)]; });
}

} // namespace IconText
