#include "doubles/preferences.h"

#include "doubles/core_foundation_objects.h"
#include "doubles/journal.h"

#include <gtest/gtest.h>

#include <cstring>

namespace glidemap::test {

Preferences& preferences() {
    static Preferences notified;
    return notified;
}

namespace {

struct Text : Object {
    explicit Text(std::string given) : Object("CFString"), text(std::move(given)) {}

    const std::string text;
};

struct Number : Object {
    Number() : Object("CFNumber") {}
};

const std::string& textIn(CFTypeRef reference) {
    return static_cast<Text*>(objectOf(reference))->text;
}

bool isConstant(CFTypeRef reference) {
    return reference == kCFBooleanTrue || reference == kCFBooleanFalse;
}

CFTypeRef handOutPreference(const Preference& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        return handOut(new Text(*text));
    }
    return handOut(new Number);
}

// Stands for a boolean in the preferences. The system hands out one of its two constants, which are
// never released, even after a copy. This object must be released, so that tests can detect a
// missing release.
struct Truth : Object {
    explicit Truth(bool given) : Object("CFBoolean"), value(given) {}

    const bool value;
};

} // namespace

} // namespace glidemap::test

using namespace glidemap::test;

const CFStringRef kCFPreferencesCurrentApplication = constantText("this application");

CFTypeID CFStringGetTypeID() {
    return 7;
}

CFTypeID CFBooleanGetTypeID() {
    return 21;
}

CFTypeID CFGetTypeID(CFTypeRef reference) {
    if (isConstant(reference)) {
        return CFBooleanGetTypeID();
    }
    const std::string& kind = objectOf(reference)->kind;
    return kind == "CFString"    ? CFStringGetTypeID()
           : kind == "CFBoolean" ? CFBooleanGetTypeID()
                                 : 22;
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
    return isConstant(boolean) ? boolean == kCFBooleanTrue
                               : static_cast<Truth*>(objectOf(boolean))->value;
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef /*allocator*/, const UInt8* bytes,
                                    CFIndex numBytes, CFStringEncoding encoding,
                                    Boolean isExternalRepresentation) {
    EXPECT_EQ(encoding, kCFStringEncodingUTF8);
    EXPECT_FALSE(isExternalRepresentation);
    if (!preferences().makesTexts) {
        return nullptr;
    }
    return handOutAs<CFStringRef>(new Text(
        std::string(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(numBytes))));
}

// Returns the length in bytes, which is never less than the system's result, the number of UTF-16
// units.
CFIndex CFStringGetLength(CFStringRef theString) {
    return static_cast<CFIndex>(textIn(theString).size());
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding /*encoding*/) {
    return length * 3;
}

Boolean CFStringGetCString(CFStringRef theString, char* buffer, CFIndex bufferSize,
                           CFStringEncoding /*encoding*/) {
    const std::string& text = textIn(theString);
    if (static_cast<CFIndex>(text.size()) >= bufferSize) {
        return false;
    }
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}

// Compares the keys by their text, because the dictionary's keys are constants of the system and
// the caller passes a text that it has created.
const void* CFDictionaryGetValue(CFDictionaryRef theDict, const void* key) {
    for (const auto& [name, value] : entriesOf(theDict)) {
        if (nameOf(name) == textIn(key)) {
            return value;
        }
    }
    return nullptr;
}

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationID) {
    EXPECT_EQ(applicationID, kCFPreferencesCurrentApplication);
    const auto found = preferences().stored.find(textIn(key));
    if (found == preferences().stored.end()) {
        return nullptr;
    }
    const auto* truth = std::get_if<bool>(&found->second);
    return truth != nullptr ? handOut(new Truth(*truth)) : handOutPreference(found->second);
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID) {
    EXPECT_EQ(applicationID, kCFPreferencesCurrentApplication);
    const bool isTruth = CFGetTypeID(value) == CFBooleanGetTypeID();
    const Preference taken =
        isTruth ? Preference(CFBooleanGetValue(static_cast<CFBooleanRef>(value)) != 0)
                : Preference(textIn(value));
    preferences().stored[textIn(key)] = taken;
    note("CFPreferencesSetAppValue " + textIn(key));
}

Boolean CFPreferencesAppSynchronize(CFStringRef applicationID) {
    note("CFPreferencesAppSynchronize " + nameOf(applicationID));
    return true;
}
