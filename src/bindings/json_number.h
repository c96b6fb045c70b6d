// Exact values of JSON numbers from their text, for the places where a double is too coarse or too
// small.
//
// Thread:  any.
// Errors:  nullopt.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace glidemap {

// Of a number that JSON allows, in any spelling: 36, 36.0, 3.6e1 and 360e-1 are the same. Nullopt if
// it has a fraction or does not fit. Any single character may stand for the decimal point: parsers
// leave the one of the locale.
std::optional<std::uint64_t> wholeNumber(std::string_view number);

// Whether the number is too large for any whole number here, and perhaps for a double.
bool isHugeNumber(std::string_view number);

} // namespace glidemap
