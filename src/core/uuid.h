// A universally unique identifier. New identifiers are random.
//
// Thread:  any; a plain value.
// Errors:  parsing returns nullopt unless the text is in the 36-character hyphenated form, in upper
//          or lower case.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

class Uuid {
public:
    static Uuid generate();
    static std::optional<Uuid> parse(std::string_view text);

    // Returns the hyphenated form with upper-case digits.
    std::string text() const;

    friend bool operator==(const Uuid&, const Uuid&) = default;

    std::size_t hash() const;

private:
    std::array<std::uint8_t, 16> bytes{};
};

} // namespace glidemap

template <>
struct std::hash<glidemap::Uuid> {
    std::size_t operator()(const glidemap::Uuid& uuid) const noexcept { return uuid.hash(); }
};
