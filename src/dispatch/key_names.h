// The short labels of keys in shortcut texts: virtual key code to the label of that key on a US
// keyboard, whatever the user's layout.
//
// Thread:  any.
// Errors:  none; a code without a label is shown by its number.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace glidemap::KeyNames {

// Built on first use.
const std::map<std::uint16_t, std::string_view>& map();

// The key's label, or "Key " and the code in decimal.
std::string name(std::uint16_t keyCode);

} // namespace glidemap::KeyNames
