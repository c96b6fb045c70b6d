// Reads the bit sets that sysfs shows of an input device: words as wide as the kernel's long, in
// hexadecimal, the highest first, without leading zeros.
//
// Thread:  any; pure functions.
// Errors:  none; what is no such text has no bits.
#pragma once

#include <string_view>

namespace glidemap {

bool hasBit(std::string_view words, unsigned bit);

} // namespace glidemap
