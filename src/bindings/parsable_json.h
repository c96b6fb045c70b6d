// Prepares JSON for a parser that accepts less than JSON allows: its numbers must fit into a
// double, and it rejects an escaped unpaired surrogate.
//
// Memory:  a second copy of the text if anything must be replaced.
// Thread:  any.
// Errors:  none; invalid JSON stays unchanged, and the parser rejects it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// Replaces with null each number that exceeds 64-bit integers and that the parser might reject, and
// replaces each escaped unpaired surrogate with U+FFFD. Everything else keeps its position. Returns
// nullopt if the text needs no change.
std::optional<std::string> parsableJson(std::string_view text);

} // namespace glidemap
