#include "recording/evemu_line.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace glidemap {

namespace {

constexpr std::string_view blanks = " \t\r";
constexpr std::size_t prefixLength = 2; // a letter and a colon

bool hasPrefix(std::string_view line, std::string_view letters) {
    return line.size() >= prefixLength && line[1] == ':' &&
           letters.find(line[0]) != std::string_view::npos;
}

std::string_view withoutComment(std::string_view line) {
    return line.substr(0, line.find('#'));
}

// Removes the next word from the text and returns it. Returns an empty word at the end.
std::string_view takeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const auto word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

template <typename Integer>
bool parseInteger(std::string_view word, int base, Integer& value) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, base);
    return error == std::errc() && end == word.data() + word.size();
}

constexpr int decimal = 10;
constexpr int hexadecimal = 16;

// Parses seconds with a fraction of any length. Digits beyond microseconds are ignored.
bool parseTime(std::string_view word, double& time) {
    const auto point = word.find('.');
    if (point == std::string_view::npos) {
        return false;
    }
    std::string fraction(word.substr(point + 1));
    if (fraction.empty() || fraction.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    fraction.resize(6, '0');
    std::uint32_t seconds = 0;
    std::uint32_t microseconds = 0;
    const bool valid = parseInteger(word.substr(0, point), decimal, seconds) &&
                       parseInteger(std::string_view(fraction), decimal, microseconds);
    time = seconds + microseconds * 1e-6;
    return valid;
}

} // namespace

bool isEvemuLine(std::string_view line) {
    return hasPrefix(line, "NIPBALSE");
}

bool isEvemuDescription(std::string_view line) {
    return hasPrefix(line, "NIPBALS");
}

std::optional<std::string> EvemuDescription::add(std::string_view line) {
    if (hasPrefix(line, "N")) {
        line.remove_prefix(prefixLength);
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        _device.name = line;
    } else if (hasPrefix(line, "P")) {
        return addProperties(withoutComment(line.substr(prefixLength)));
    } else if (hasPrefix(line, "A")) {
        return addAxis(withoutComment(line.substr(prefixLength)));
    }
    return std::nullopt;
}

std::optional<std::string> EvemuDescription::addProperties(std::string_view bytes) {
    constexpr unsigned knownProperties = 64;
    for (auto word = takeWord(bytes); !word.empty(); word = takeWord(bytes)) {
        std::uint8_t byte = 0;
        if (!parseInteger(word, hexadecimal, byte)) {
            return "properties are not bytes in hexadecimal";
        }
        if (propertyBits < knownProperties) {
            _device.properties |= std::uint64_t{byte} << propertyBits;
            propertyBits += 8;
        }
    }
    return std::nullopt;
}

std::optional<std::string> EvemuDescription::addAxis(std::string_view fields) {
    std::uint16_t code = 0;
    AxisRange range;
    std::int32_t ignored = 0; // fuzz and flat, which are not used
    const bool valid = parseInteger(takeWord(fields), hexadecimal, code) &&
                       parseInteger(takeWord(fields), decimal, range.minimum) &&
                       parseInteger(takeWord(fields), decimal, range.maximum) &&
                       parseInteger(takeWord(fields), decimal, ignored) &&
                       parseInteger(takeWord(fields), decimal, ignored);
    const auto resolution = takeWord(fields); // older recordings have no resolution
    if (!valid || (!resolution.empty() && !parseInteger(resolution, decimal, range.resolution))) {
        return "an axis is not \"A: axis min max fuzz flat [resolution]\"";
    }
    _device.axes[code] = range;
    return std::nullopt;
}

std::optional<std::string> parseEvemuEvent(std::string_view line, InputEvent& event) {
    const bool isEvent = hasPrefix(line, "E");
    line = withoutComment(line.substr(std::min(prefixLength, line.size())));
    const bool valid = isEvent && parseTime(takeWord(line), event.time) &&
                       parseInteger(takeWord(line), hexadecimal, event.type) &&
                       parseInteger(takeWord(line), hexadecimal, event.code) &&
                       parseInteger(takeWord(line), decimal, event.value) && takeWord(line).empty();
    if (!valid) {
        return "an event is not \"E: seconds.microseconds type code value\"";
    }
    return std::nullopt;
}

} // namespace glidemap
