#include "bindings/parsable_json.h"

#include "bindings/json_number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

namespace glidemap {

namespace {

// Visits the strings and numbers of a text and skips everything else.
class Replacer {
public:
    explicit Replacer(std::string_view original) : text(original) {}

    std::optional<std::string> replaceAll() {
        while (place < text.size()) {
            const char character = text[place];
            if (character == '"') {
                passString();
            } else if (character == '-' || isDigit(character)) {
                passNumber();
            } else {
                ++place;
            }
        }
        return std::move(changed);
    }

private:
    static bool isDigit(char character) { return character >= '0' && character <= '9'; }

    void passString();
    void passEscape();
    void passNumber();
    void replace(std::size_t start, std::string_view replacement);

    // The value of "\uXXXX" at this position, or nullopt.
    std::optional<std::uint16_t> unitAt(std::size_t start) const;

    const std::string_view text;
    std::size_t place = 0;
    std::optional<std::string> changed;
};

constexpr std::size_t escapeLength = 6; // of \uXXXX

std::optional<std::uint16_t> Replacer::unitAt(std::size_t start) const {
    const std::string_view escape = text.substr(std::min(start, text.size()), escapeLength);
    if (escape.size() < escapeLength || !escape.starts_with("\\u")) {
        return std::nullopt;
    }
    std::uint16_t unit = 0;
    const char* const end = escape.data() + escape.size();
    const auto result = std::from_chars(escape.data() + 2, end, unit, 16);
    return result.ptr == end ? std::optional(unit) : std::nullopt;
}

void Replacer::passString() {
    ++place;
    while (place < text.size() && text[place] != '"') {
        if (text[place] == '\\') {
            passEscape();
        } else {
            ++place;
        }
    }
    ++place;
}

void Replacer::passEscape() {
    const auto isBetween = [](std::optional<std::uint16_t> unit, unsigned first, unsigned last) {
        return unit && *unit >= first && *unit <= last;
    };
    const auto unit = unitAt(place);
    if (!unit) {
        place += 2;
        return;
    }
    const bool isFirstHalf = isBetween(unit, 0xD800, 0xDBFF);
    if (isFirstHalf && isBetween(unitAt(place + escapeLength), 0xDC00, 0xDFFF)) {
        place += 2 * escapeLength;
        return;
    }
    if (isBetween(unit, 0xD800, 0xDFFF)) {
        replace(place, "\\ufffd");
    }
    place += escapeLength;
}

void Replacer::passNumber() {
    const std::size_t start = place;
    const auto passDigits = [this] {
        const std::size_t first = place;
        while (place < text.size() && isDigit(text[place])) {
            ++place;
        }
        return place > first;
    };
    const auto pass = [this](std::string_view characters) {
        const bool isThere =
            place < text.size() && characters.find(text[place]) != std::string_view::npos;
        place += isThere ? 1 : 0;
        return isThere;
    };
    pass("-");
    const bool hasLeadingZero =
        place + 1 < text.size() && text[place] == '0' && isDigit(text[place + 1]);
    bool isNumber = passDigits() && !hasLeadingZero;
    if (isNumber && pass(".")) {
        isNumber = passDigits();
    }
    if (isNumber && pass("eE")) {
        pass("+-");
        isNumber = passDigits();
    }
    constexpr std::string_view null = "null";
    const std::string_view number = text.substr(start, place - start);
    if (isNumber && number.size() >= null.size() && isHugeNumber(number)) {
        replace(start, std::string(null) + std::string(number.size() - null.size(), ' '));
    }
}

void Replacer::replace(std::size_t start, std::string_view replacement) {
    if (!changed) {
        changed = std::string(text);
    }
    changed->replace(start, replacement.size(), replacement);
}

} // namespace

std::optional<std::string> parsableJson(std::string_view text) {
    return Replacer(text).replaceAll();
}

} // namespace glidemap
