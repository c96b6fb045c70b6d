// Reads the bit sets that sysfs shows for an input device: words as wide as this program's long, in
// hexadecimal, the highest first, without leading zeros.
//
// Thread:  any; pure functions.
// Errors:  none; an invalid text contains no bits.
#pragma once

#include <string_view>

namespace glidemap {

bool hasBit(std::string_view words, unsigned bit);

} // namespace glidemap
