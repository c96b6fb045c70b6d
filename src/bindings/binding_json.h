// The bindings' form on disk: a JSON array with one object a binding.
//
// Decoding is strict: a key that is missing or of the wrong kind, or a text outside its closed set,
// fails the whole array; keys that are not known are ignored. Where JSON leaves a choice:
// - A number is an integer if it is written as one: 36, not 36.0 and not 3.6e1.
// - Of a key that an object repeats, the last value counts.
// - A byte-order mark at the start is passed over: some editors write one.
// - Text that is not UTF-8, also by an escape (half of a surrogate pair), fails the whole array; so
//   does a number beyond a double's range, even where nobody looks at it.
// - Nesting may be as deep as it likes; decoding does not recurse.
//
// Memory:  encoding needs a few times its result. Decoding needs its result, and of what it ignores
//          one token at a time, a few times.
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
