#include "app/version_order.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <system_error>

namespace glidemap {

namespace {

// std::from_chars() accepts a leading minus, but not a leading plus.
std::int64_t numberIn(std::string_view piece) {
    if (piece.starts_with('+')) {
        piece.remove_prefix(1);
        if (piece.starts_with('-')) {
            return 0;
        }
    }
    std::int64_t number = 0;
    const char* const end = piece.data() + piece.size();
    const auto [rest, error] = std::from_chars(piece.data(), end, number);
    return error == std::errc() && rest == end ? number : 0;
}

// Removes the next non-empty piece and returns its number, or 0 if no piece is left.
std::int64_t takeNumber(std::string_view& version) {
    version.remove_prefix(std::min(version.find_first_not_of('.'), version.size()));
    const std::string_view piece = version.substr(0, version.find('.'));
    version.remove_prefix(piece.size());
    return numberIn(piece);
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Includes U+0080 to U+009F, which UTF-8 encodes as the bytes C2 80 to C2 9F.
bool isControl(unsigned char byte, unsigned char next) {
    constexpr unsigned char remove = 0x7F;
    return byte < ' ' || byte == remove || (byte == 0xC2 && next >= 0x80 && next <= 0x9F);
}

bool canBeShown(std::string_view version) {
    constexpr std::ptrdiff_t maxCharacters = 64;
    for (std::size_t place = 0; place < version.size(); ++place) {
        const char next = place + 1 < version.size() ? version[place + 1] : '\0';
        if (isControl(static_cast<unsigned char>(version[place]),
                      static_cast<unsigned char>(next))) {
            return false;
        }
    }
    return std::count_if(version.begin(), version.end(),
                         [](char byte) { return !isContinuation(byte); }) <= maxCharacters;
}

} // namespace

bool isNewerVersion(std::string_view version, std::string_view other) {
    if (!canBeShown(version)) {
        return false;
    }
    while (!version.empty() || !other.empty()) {
        const std::int64_t ours = takeNumber(version);
        const std::int64_t theirs = takeNumber(other);
        if (ours != theirs) {
            return ours > theirs;
        }
    }
    return false;
}

} // namespace glidemap
