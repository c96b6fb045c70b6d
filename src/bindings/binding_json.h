// The bindings' form on disk: a JSON array with one object a binding.
//
// Decoding is strict: a key that is missing or of the wrong kind, or a text outside its closed set,
// fails the whole array; keys that are not known are ignored. Where JSON leaves a choice:
// - A number is an integer if its exact value is one, in any spelling: 36, 36.0, 3.6e1.
// - Of a key that an object repeats, the last value counts.
// - A byte-order mark at the start is passed over: some editors write one.
// - Bytes that are not UTF-8 fail the whole array: such a file is not JSON. An escaped half of a
//   surrogate pair reads as U+FFFD. A number may have any size where it is ignored.
// - Nesting may be as deep as it likes; decoding does not recurse.
//
// Memory:  encoding needs a few times its result. Decoding needs its result, and of what it ignores
//          one token at a time, a few times; the whole text once more if it has halves of surrogate
//          pairs or huge numbers.
// Thread:  any.
// Errors:  decoding answers the first reason in words; nothing throws. Texts of a binding that are
//          not UTF-8 are written with U+FFFD for what is wrong in them.
#pragma once

#include "bindings/gesture_binding.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace glidemap {

struct DecodingFailure {
    std::string reason; // where and what, for people: "[2].gesture: not a gesture"
};

// Pretty-printed, the keys of every object in ascending order.
std::string encodeBindings(const std::vector<GestureBinding>& bindings);

std::variant<std::vector<GestureBinding>, DecodingFailure> decodeBindings(std::string_view text);

} // namespace glidemap
