// Prepares JSON for a parser that accepts less than JSON allows: numbers must fit into a double there,
// and an escaped half of a surrogate pair counts as an error.
//
// Memory:  a second text of the same size if there is anything to replace.
// Thread:  any.
// Errors:  none; what is not JSON stays, for the parser to refuse.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// The text with null for each number that is too large for a whole number of 64 bits and that the
// parser might refuse, and with U+FFFD for each escaped half of a surrogate pair. All else keeps its
// place. Nullopt if the text can be parsed as it stands.
std::optional<std::string> parsableJson(std::string_view text);

} // namespace glidemap
