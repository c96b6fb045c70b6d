// Handles valid JSON that a parser would reject or read inexactly: whole numbers in other
// notations, numbers that do not fit into a double, and escaped unpaired surrogates.
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

// Returns the value of a valid JSON number in any notation: 36, 36.0, 3.6e1 and 360e-1 are equal.
// Returns nullopt if the number is negative, has a fraction or does not fit into 64 bits. Accepts
// any single character as the decimal point, because parsers use the locale's decimal point.
std::optional<std::uint64_t> wholeNumber(std::string_view number);

// Returns a copy of the text in which null replaces numbers that are so large that the parser might
// reject them, and U+FFFD replaces escaped unpaired surrogates. All other text keeps its position,
// so the positions in the parser's messages are valid for the original. Returns nullopt if the text
// needs no change.
std::optional<std::string> parsableJson(std::string_view text);

} // namespace glidemap
