// Maps a virtual key code to its short label on a US keyboard, regardless of the user's layout.
// Shortcut texts use these labels.
//
// Thread:  any.
// Errors:  none; a code without a label is shown as a number.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace glidemap::KeyNames {

// Built on first use.
const std::map<std::uint16_t, std::string_view>& map();

// Returns the key's label, or "Key " followed by the decimal code.
std::string name(std::uint16_t keyCode);

} // namespace glidemap::KeyNames
