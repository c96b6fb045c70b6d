#include "core/uuid.h"

#include <uuid/uuid.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string>

namespace glidemap {

namespace {

constexpr std::size_t textLength = 36;
constexpr std::array<std::size_t, 4> hyphens = {8, 13, 18, 23};

bool isHexadecimal(char character) {
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

// uuid_parse differs between libraries: some accept a space or a sign before a digit, or ignore
// text after a zero byte.
bool isWellFormed(std::string_view text) {
    if (text.size() != textLength) {
        return false;
    }
    for (std::size_t place = 0; place < textLength; ++place) {
        const bool isHyphen = std::ranges::find(hyphens, place) != hyphens.end();
        if (isHyphen ? text[place] != '-' : !isHexadecimal(text[place])) {
            return false;
        }
    }
    return true;
}

} // namespace

Uuid Uuid::generate() {
    Uuid made;
    uuid_generate_random(made.bytes.data());
    return made;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (!isWellFormed(text)) {
        return std::nullopt;
    }
    Uuid parsed;
    const std::string terminated(text);
    if (uuid_parse(terminated.c_str(), parsed.bytes.data()) != 0) {
        return std::nullopt;
    }
    return parsed;
}

std::string Uuid::text() const {
    std::array<char, textLength + 1> buffer{};
    uuid_unparse_upper(bytes.data(), buffer.data());
    return {buffer.data(), textLength};
}

// The bytes of a new identifier are random, so any of them make a good hash.
std::size_t Uuid::hash() const {
    std::size_t hash = 0;
    std::memcpy(&hash, bytes.data(), sizeof hash);
    return hash;
}

} // namespace glidemap
