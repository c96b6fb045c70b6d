// One object of a bindings file as read: its known keys, each with a value that is not validated
// yet.
//
// Repeated, nested or long unknown values do not increase its size: it has one slot per known key,
// and the last value of a repeated key wins.
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
// Null, an array, an object nested too deeply, or a number that is not an unsigned 64-bit integer.
struct UnsupportedValue {};

using BindingValue = std::variant<AbsentValue, UnsupportedValue, bool, std::uint64_t, std::string,
                                  std::unique_ptr<BindingObject>>;

struct BindingObject {
    std::array<BindingValue, bindingKeyNames.size()> values;

    BindingValue& operator[](BindingKey key) { return values[static_cast<std::size_t>(key)]; }
};

} // namespace glidemap
