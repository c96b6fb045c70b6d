// One object of a bindings file as it was read: its known keys, each with a value that is not judged
// yet.
//
// However the file repeats, nests or lengthens what nobody knows, this does not grow: there is one
// place for each known key, and the last value of a repeated key stays.
//
// Thread:  any; a plain value.
// Errors:  none.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace glidemap {

// All keys that any object of the file can have.
enum class BindingKey : std::uint8_t {
    id,
    gesture,
    action,
    scope,
    enabled,
    kind,
    shortcut,
    bundleID,
    name,
    keyCode,
    modifiers,
};

inline constexpr std::array<std::string_view, 11> bindingKeyNames = {
    "id",       "gesture",  "action", "scope",   "enabled",   "kind",
    "shortcut", "bundleID", "name",   "keyCode", "modifiers",
};

std::optional<BindingKey> bindingKeyNamed(std::string_view name);

struct BindingObject;

struct AbsentValue {};
// Null, an array, an object deeper than any of ours, and every number whose value is not an unsigned
// 64-bit integer.
struct UselessValue {};

using BindingValue = std::variant<AbsentValue, UselessValue, bool, std::uint64_t, std::string,
                                  std::unique_ptr<BindingObject>>;

struct BindingObject {
    std::array<BindingValue, bindingKeyNames.size()> values;

    BindingValue& operator[](BindingKey key) { return values[static_cast<std::size_t>(key)]; }
};

} // namespace glidemap
