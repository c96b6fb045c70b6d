// Reads the bit sets that sysfs shows for an input device: hexadecimal words of the size of this
// program's `long`, the highest word first, without leading zeros.
//
// Thread:  any; pure functions.
// Errors:  none; an invalid text contains no bits.
#pragma once

#include <string_view>

namespace glidemap {

bool hasBit(std::string_view words, unsigned bit);

} // namespace glidemap
