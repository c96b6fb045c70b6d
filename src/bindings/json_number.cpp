#include "bindings/json_number.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <string>
#include <system_error>

namespace glidemap {

namespace {

// The value is 0.DIGITS * 10^pointPlace; no digits means zero.
struct Decimal {
    bool isNegative = false;
    std::string digits; // neither starts nor ends with a zero
    std::int64_t pointPlace = 0;
};

// The number of digits of the maximum value.
constexpr int maxDigits = std::numeric_limits<std::uint64_t>::digits10 + 1;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

// Clamped far from the limits of its type, so that a file's length can be added without overflow.
std::int64_t exponentIn(std::string_view text) {
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / 4;
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(isNegative || text.starts_with('+') ? 1 : 0);
    std::int64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    value = result.ec == std::errc::result_out_of_range ? limit : std::min(value, limit);
    return isNegative ? -value : value;
}

Decimal decimalIn(std::string_view number) {
    Decimal decimal;
    decimal.isNegative = number.starts_with('-');
    number.remove_prefix(decimal.isNegative ? 1 : 0);
    const auto exponentStart = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, exponentStart);
    const auto point = std::find_if_not(mantissa.begin(), mantissa.end(), isDigit);
    decimal.pointPlace = point - mantissa.begin();
    if (exponentStart < number.size()) {
        decimal.pointPlace += exponentIn(number.substr(exponentStart + 1));
    }
    std::copy_if(mantissa.begin(), mantissa.end(), std::back_inserter(decimal.digits), isDigit);
    const auto leadingZeros =
        std::min(decimal.digits.find_first_not_of('0'), decimal.digits.size());
    decimal.pointPlace -= static_cast<std::int64_t>(leadingZeros);
    decimal.digits.erase(0, leadingZeros);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    return decimal;
}

} // namespace

std::optional<std::uint64_t> wholeNumber(std::string_view number) {
    Decimal decimal = decimalIn(number);
    if (decimal.digits.empty()) {
        return 0;
    }
    const bool isWhole = decimal.pointPlace >= std::ssize(decimal.digits);
    if (decimal.isNegative || !isWhole || decimal.pointPlace > maxDigits) {
        return std::nullopt;
    }
    decimal.digits.resize(static_cast<std::size_t>(decimal.pointPlace), '0');
    std::uint64_t value = 0;
    const char* const end = decimal.digits.data() + decimal.digits.size();
    const auto result = std::from_chars(decimal.digits.data(), end, value);
    return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

bool isHugeNumber(std::string_view number) {
    const Decimal decimal = decimalIn(number);
    return !decimal.digits.empty() && decimal.pointPlace > maxDigits;
}

} // namespace glidemap
