#include "core/uuid.h"

#include <uuid/uuid.h>

#include <cstring>

namespace glidemap {

namespace {

constexpr std::size_t textLength = 36;

} // namespace

Uuid Uuid::generate() {
    Uuid made;
    uuid_generate_random(made.bytes.data());
    return made;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != textLength) {
        return std::nullopt; // libuuid reads up to the first zero byte
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

// The bytes are random already.
std::size_t Uuid::hash() const {
    std::size_t hash = 0;
    std::memcpy(&hash, bytes.data(), sizeof hash);
    return hash;
}

} // namespace glidemap
