// Valid JSON that a parser loses or rejects: the exact value of a number, numbers beyond a double,
// and escaped unpaired surrogates.
//
// Memory:  a second copy of the text if anything must be replaced.
// Thread:  any.
// Errors:  none; invalid JSON stays invalid, and the parser rejects it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// For a valid JSON number in any notation: 36, 36.0, 3.6e1 and 360e-1 are equal. Returns nullopt if
// the number is negative, has a fraction or does not fit. Any single character may be the decimal
// point: parsers use that of the locale.
std::optional<std::uint64_t> wholeNumber(std::string_view number);

// Replaces with null each number that exceeds 64-bit integers and that the parser might reject, and
// replaces each escaped unpaired surrogate with U+FFFD. Everything else keeps its position, so that
// the parser's messages locate errors in the original. Returns nullopt if the text needs no change.
std::optional<std::string> parsableJson(std::string_view text);

} // namespace glidemap
