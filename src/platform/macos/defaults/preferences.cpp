#include "platform/macos/defaults/preferences.h"

#include "platform/macos/core_foundation.h"

#include <CoreFoundation/CoreFoundation.h>

#include <cstring>

namespace glidemap {

namespace {

Owned<CFStringRef> made(std::string_view text) {
    constexpr Boolean withoutMark = false;
    return Owned<CFStringRef>(CFStringCreateWithBytes(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()),
        static_cast<CFIndex>(text.size()), kCFStringEncodingUTF8, withoutMark));
}

// Returns nullopt if the text cannot be converted to UTF-8.
std::optional<std::string> textOf(CFStringRef string) {
    const CFIndex most =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(string), kCFStringEncodingUTF8) + 1;
    std::string text(static_cast<std::size_t>(most), '\0');
    if (!CFStringGetCString(string, text.data(), most, kCFStringEncodingUTF8)) {
        return std::nullopt;
    }
    text.resize(std::strlen(text.c_str()));
    return text;
}

// Returns null if the value is missing or has another type.
Owned<CFPropertyListRef> stored(std::string_view key, CFTypeID kind) {
    const Owned<CFStringRef> name = made(key);
    if (!name) {
        return {};
    }
    Owned<CFPropertyListRef> value(
        CFPreferencesCopyAppValue(name.get(), kCFPreferencesCurrentApplication));
    if (value && CFGetTypeID(value.get()) != kind) {
        value.reset();
    }
    return value;
}

// Synchronizes immediately, so that a crash loses no setting.
void store(std::string_view key, CFPropertyListRef value) {
    const Owned<CFStringRef> name = made(key);
    if (name && value != nullptr) {
        CFPreferencesSetAppValue(name.get(), value, kCFPreferencesCurrentApplication);
        CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
    }
}

} // namespace

std::optional<std::string> Preferences::string(std::string_view key) const {
    const auto value = stored(key, CFStringGetTypeID());
    return value ? textOf(static_cast<CFStringRef>(value.get())) : std::nullopt;
}

void Preferences::setString(std::string_view key, std::string_view value) {
    store(key, made(value).get());
}

std::optional<bool> Preferences::boolean(std::string_view key) const {
    const auto value = stored(key, CFBooleanGetTypeID());
    return value ? std::optional<bool>(CFBooleanGetValue(static_cast<CFBooleanRef>(value.get())))
                 : std::nullopt;
}

void Preferences::setBoolean(std::string_view key, bool value) {
    store(key, value ? kCFBooleanTrue : kCFBooleanFalse);
}

} // namespace glidemap
