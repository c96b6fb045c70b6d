// The bindings' form on disk: a JSON array with one object a binding.
//
// Decoding is strict: a key that is missing or of the wrong kind, or a text outside its closed set,
// fails the whole array; keys that are not known are ignored. Numbers are integers and exact.
//
// Thread:  any.
// Errors:  decoding answers the reason in words; nothing throws.
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
