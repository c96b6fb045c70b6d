// Exact values of JSON numbers from their text, where a double lacks precision or range.
//
// Thread:  any.
// Errors:  nullopt.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace glidemap {

// For a valid JSON number in any notation: 36, 36.0, 3.6e1 and 360e-1 are equal. Returns nullopt if
// the number has a fraction or does not fit. Any single character may be the decimal point: parsers
// use that of the locale.
std::optional<std::uint64_t> wholeNumber(std::string_view number);

// Returns whether the number exceeds every 64-bit integer, and possibly the range of a double.
bool isHugeNumber(std::string_view number);

} // namespace glidemap
