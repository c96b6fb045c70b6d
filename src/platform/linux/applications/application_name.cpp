#include "platform/linux/applications/application_name.h"

#include <glib.h>

#include <algorithm>
#include <cstddef>

namespace glidemap {

namespace {

constexpr std::size_t maxIdentifier = 256; // in bytes, close to the limit for file names

std::string asUTF8(std::string_view text) {
    if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr)) {
        return std::string(text);
    }
    std::string converted;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x80) {
            converted.push_back(character);
        } else {
            converted.push_back(static_cast<char>(0xC0 | (byte >> 6)));
            converted.push_back(static_cast<char>(0x80 | (byte & 0x3F)));
        }
    }
    return converted;
}

bool continuesCharacter(char character) {
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

std::string cutTo(std::string text, std::size_t size) {
    if (text.size() <= size) {
        return text;
    }
    while (size > 0 && continuesCharacter(text[size])) {
        --size;
    }
    text.resize(size);
    return text;
}

// Never cuts within a UTF-8 character. If the text ended with an incomplete character, asUTF8()
// would read all of it as Latin-1.
std::string_view beginningOf(std::string_view text, std::size_t size) {
    constexpr std::size_t maxContinuation = 3;
    if (text.size() <= size) {
        return text;
    }
    std::size_t end = size;
    while (end + maxContinuation > size && continuesCharacter(text[end])) {
        --end;
    }
    return text.substr(0, end);
}

bool isControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

} // namespace

std::string cleanIdentifier(std::string_view text) {
    std::string clean = asUTF8(beginningOf(text, maxIdentifier * 4));
    clean.erase(std::remove_if(clean.begin(), clean.end(), isControl), clean.end());
    clean.erase(0, clean.find_first_not_of(' '));
    clean = cutTo(std::move(clean), maxIdentifier);
    clean.erase(clean.find_last_not_of(' ') + 1);
    return clean;
}

std::string_view lastComponent(std::string_view identifier) {
    const bool dotted = std::count(identifier.begin(), identifier.end(), '.') >= 2;
    if (!dotted || identifier.find(' ') != std::string_view::npos || identifier.back() == '.') {
        return {};
    }
    return identifier.substr(identifier.rfind('.') + 1);
}

std::string nameFromIdentifier(std::string_view identifier) {
    const std::string_view last = lastComponent(identifier);
    std::string name(last.empty() ? identifier : last);
    std::replace_if(
        name.begin(), name.end(), [](char one) { return one == '-' || one == '_'; }, ' ');
    char before = ' ';
    for (char& character : name) {
        if (before == ' ') {
            character = g_ascii_toupper(character);
        }
        before = character;
    }
    return name;
}

} // namespace glidemap
