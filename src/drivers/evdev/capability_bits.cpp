#include "drivers/evdev/capability_bits.h"

#include <charconv>
#include <cstdint>

namespace glidemap {

namespace {

// The kernel writes 32-bit words for a 32-bit program.
constexpr unsigned bitsOfAWord = sizeof(long) * 8;

} // namespace

bool hasBit(std::string_view words, unsigned bit) {
    for (unsigned skipped = bit / bitsOfAWord; skipped > 0; --skipped) {
        const std::size_t space = words.rfind(' ');
        if (space == std::string_view::npos) {
            return false;
        }
        words = words.substr(0, space);
    }
    const std::string_view word = words.substr(words.rfind(' ') + 1);
    std::uint64_t value = 0;
    std::from_chars(word.data(), word.data() + word.size(), value, 16);
    return (value >> (bit % bitsOfAWord) & 1) != 0;
}

} // namespace glidemap
