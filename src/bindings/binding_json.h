// The file format of the bindings: a JSON array with one object per binding.
//
// Decoding is strict: a missing key, a value of the wrong type or an unknown text, such as an
// unknown gesture, makes the whole array invalid. Unknown keys are ignored. Where the JSON standard
// leaves a choice:
// - A number is an integer if its exact value is an integer, in any notation: 36, 36.0, 3.6e1.
//   The number of an ignored key may have any size.
// - If an object repeats a key, the last value counts.
// - A byte-order mark at the start is skipped: some editors write one.
// - Invalid UTF-8 makes the whole array invalid: such a file is not JSON. An escaped unpaired
//   surrogate reads as U+FFFD.
// - Values nested deeper than a shortcut inside an action inside a binding are skipped. Decoding
//   does not recurse, so it accepts any depth.
//
// Memory:  encoding needs a few times the size of its result. Decoding needs memory for its result,
//          for one binding's known values, and for a few copies of the longest ignored token. A
//          text with unpaired surrogates or huge numbers is read twice and copied once.
// Thread:  any.
// Errors:  decoding returns the first error as text and never throws. Encoding replaces invalid
//          UTF-8 in a binding's texts with U+FFFD.
#pragma once

#include "bindings/gesture_binding.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace glidemap {

struct DecodingFailure {
    std::string reason; // human-readable location and problem: "[2].gesture: not a gesture"
};

// Returns indented JSON. The keys of every object are sorted.
std::string encodeBindings(const std::vector<GestureBinding>& bindings);

std::variant<std::vector<GestureBinding>, DecodingFailure> decodeBindings(std::string_view text);

} // namespace glidemap
