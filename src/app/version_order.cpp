#include "app/version_order.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace glidemap {

namespace {

// A sign in front of the digits is part of the number.
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

// Takes the next piece that is not empty off the front; 0 when there is none left.
std::int64_t takeNumber(std::string_view& version) {
    version.remove_prefix(std::min(version.find_first_not_of('.'), version.size()));
    const std::string_view piece = version.substr(0, version.find('.'));
    version.remove_prefix(piece.size());
    return numberIn(piece);
}

} // namespace

bool isNewerVersion(std::string_view version, std::string_view other) {
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
