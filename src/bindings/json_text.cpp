#include "bindings/json_text.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <system_error>

namespace glidemap {

namespace {

constexpr std::string_view digitCharacters = "0123456789";

// Returns the exponent in a text such as "+10". Clamps it, so that adding the length of a text
// cannot overflow.
std::int64_t exponentIn(std::string_view text) {
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / 4;
    constexpr int decimal = 10;
    return std::clamp<std::int64_t>(std::strtoll(std::string(text).c_str(), nullptr, decimal),
                                    -limit, limit);
}

// The value is DIGITS * 10^exponent; no digits means zero.
struct Decimal {
    std::string digits; // neither starts nor ends with a zero
    std::int64_t exponent = 0;

    // The number of digits before the decimal point.
    std::int64_t wholeDigits() const { return digits.empty() ? 0 : std::ssize(digits) + exponent; }
};

// The maximum number of digits in a 64-bit integer.
constexpr int maxDigits = std::numeric_limits<std::uint64_t>::digits10 + 1;

Decimal decimalIn(std::string_view number) {
    number.remove_prefix(number.starts_with('-') ? 1 : 0);
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    Decimal decimal{std::string(number.substr(0, mantissaEnd)),
                    mantissaEnd < number.size() ? exponentIn(number.substr(mantissaEnd + 1)) : 0};
    std::string& digits = decimal.digits;
    if (const auto point = digits.find_first_not_of(digitCharacters); point != std::string::npos) {
        digits.erase(point, 1);
        decimal.exponent -= static_cast<std::int64_t>(digits.size() - point);
    }
    const std::size_t end = digits.find_last_not_of('0') + 1;
    decimal.exponent += static_cast<std::int64_t>(digits.size() - end);
    digits.resize(end);
    digits.erase(0, digits.find_first_not_of('0'));
    return decimal;
}

// Advances `end` past a number, or past the valid start of an invalid one. Returns whether the
// number is valid.
bool skipNumber(std::string_view text, std::size_t& end) {
    const auto skipOne = [&](std::string_view characters) {
        const bool matches =
            end < text.size() && characters.find(text[end]) != std::string_view::npos;
        end += matches ? 1 : 0;
        return matches;
    };
    const auto skipDigits = [&] {
        const std::size_t start = end;
        end = std::min(text.find_first_not_of(digitCharacters, end), text.size());
        return end > start;
    };
    skipOne("-");
    bool isValid = skipOne("0") ? !skipDigits() : skipDigits();
    if (isValid && skipOne(".")) {
        isValid = skipDigits();
    }
    if (isValid && skipOne("eE")) {
        skipOne("+-");
        isValid = skipDigits();
    }
    return isValid;
}

// Returns the code unit of a "\uXXXX" escape at the start of the text, or 0 if the text starts
// differently.
unsigned unitAt(std::string_view text) {
    constexpr std::size_t start = 2;
    unsigned unit = 0;
    if (text.size() < start + 4 || !text.starts_with("\\u")) {
        return 0;
    }
    const char* const end = text.data() + start + 4;
    return std::from_chars(text.data() + start, end, unit, 16).ptr == end ? unit : 0;
}

// A token at the start of a text. The replacement has the token's length, or is empty if the token
// is valid for the parser.
struct Token {
    std::size_t length;
    std::string replacement;
};

Token escapeAt(std::string_view text) {
    constexpr std::size_t length = 6; // the length of \uXXXX
    const auto isHigh = [](unsigned unit) {
        return unit >= 0xD800 && unit <= 0xDBFF;
    };
    const auto isLow = [](unsigned unit) {
        return unit >= 0xDC00 && unit <= 0xDFFF;
    };
    const unsigned unit = unitAt(text);
    if (isHigh(unit) && isLow(unitAt(text.substr(length)))) {
        return {2 * length, ""};
    }
    return isHigh(unit) || isLow(unit) ? Token{length, "\\ufffd"} : Token{2, ""};
}

Token numberAt(std::string_view text) {
    // The replacement always fits: a number with fewer characters than "null" is never too large.
    constexpr std::string_view null = "null";
    std::size_t length = 0;
    if (!skipNumber(text, length) || length < null.size() ||
        decimalIn(text.substr(0, length)).wholeDigits() <= maxDigits) {
        return {length, ""};
    }
    Token token{length, std::string(length, ' ')};
    token.replacement.replace(0, null.size(), null);
    return token;
}

} // namespace

std::optional<std::uint64_t> wholeNumber(std::string_view number) {
    auto [digits, exponent] = decimalIn(number);
    if (digits.empty()) {
        return 0;
    }
    if (number.starts_with('-') || exponent < 0 || exponent > maxDigits) {
        return std::nullopt;
    }
    digits.append(static_cast<std::size_t>(exponent), '0');
    std::uint64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<std::string> parsableJson(std::string_view text) {
    std::optional<std::string> changed;
    bool isInString = false;
    for (std::size_t place = 0; place < text.size();) {
        const char first = text[place];
        const bool isNumber = first == '-' || (first >= '0' && first <= '9');
        if (isInString ? first != '\\' : !isNumber) {
            isInString = isInString != (first == '"');
            ++place;
            continue;
        }
        const std::string_view rest = text.substr(place);
        const Token token = isInString ? escapeAt(rest) : numberAt(rest);
        if (!token.replacement.empty()) {
            if (!changed) {
                changed.emplace(text);
            }
            changed->replace(place, token.replacement.size(), token.replacement);
        }
        place += token.length;
    }
    return changed;
}

} // namespace glidemap
