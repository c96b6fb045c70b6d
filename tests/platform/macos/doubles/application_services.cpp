#include "doubles/core_foundation_objects.h"
#include "doubles/journal.h"
#include "doubles/quartz.h"

#include <ApplicationServices/ApplicationServices.h>

#include <array>
#include <sstream>

namespace glidemap::test {

Quartz& quartz() {
    static Quartz settings;
    return settings;
}

namespace {

struct KeyboardEvent : Object {
    KeyboardEvent(CGKeyCode code, bool isDown) : Object("CGEvent"), keyCode(code), down(isDown) {}

    std::string text() const {
        std::ostringstream out;
        out << "key " << keyCode << (down ? " down" : " up");
        return out.str();
    }

    CGKeyCode keyCode;
    bool down;
};

struct MouseEvent : Object {
    explicit MouseEvent(std::int64_t number) : Object("CGEvent"), button(number) {}

    std::int64_t button;
};

struct Tap {
    CGEventTapCallBack callback = nullptr;
    void* userInfo = nullptr;
};
Tap theTap;

KeyboardEvent* eventOf(CGEventRef event) {
    return static_cast<KeyboardEvent*>(objectOf(event));
}

std::string hexadecimal(std::uint64_t value) {
    std::ostringstream out;
    out << std::hex << std::showbase << value;
    return out.str();
}

} // namespace

Passage playTo(void* userInfo, CGEventType type, std::int64_t button) {
    auto* event = handOutAs<CGEventRef>(new MouseEvent(button));
    CGEventRef answered = theTap.callback(nullptr, type, event, userInfo);
    const Passage passage = answered == event     ? Passage::passed
                            : answered == nullptr ? Passage::dropped
                                                  : Passage::replaced;
    CFRelease(event);
    return passage;
}

Passage play(CGEventType type, std::int64_t button) {
    return playTo(theTap.userInfo, type, button);
}

Passage playNotice(CGEventType type) {
    return theTap.callback(nullptr, type, nullptr, theTap.userInfo) == nullptr ? Passage::passed
                                                                               : Passage::replaced;
}

} // namespace glidemap::test

using namespace glidemap::test;

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID stateID) {
    note("CGEventSourceCreate " + std::to_string(stateID));
    return quartz().makesEventSources ? handOutAs<CGEventSourceRef>(new Object("CGEventSource"))
                                      : nullptr;
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode virtualKey, bool keyDown) {
    const bool fromSource = source != nullptr && objectOf(source)->kind == "CGEventSource";
    note("CGEventCreateKeyboardEvent " + std::string(fromSource ? "source " : "no source ") +
         std::to_string(virtualKey) + (keyDown ? " down" : " up"));
    if (quartz().eventsThatCanBeMade-- <= 0) {
        return nullptr;
    }
    return handOutAs<CGEventRef>(new KeyboardEvent(virtualKey, keyDown));
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    note("CGEventSetFlags " + eventOf(event)->text() + " " + hexadecimal(flags));
}

void CGEventPost(CGEventTapLocation tap, CGEventRef event) {
    note("CGEventPost " + std::to_string(tap) + " " + eventOf(event)->text());
}

std::int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field) {
    note("CGEventGetIntegerValueField " + std::to_string(field));
    return static_cast<MouseEvent*>(objectOf(event))->button;
}

CFMachPortRef CGEventTapCreate(CGEventTapLocation location, CGEventTapPlacement place,
                               CGEventTapOptions options, CGEventMask eventsOfInterest,
                               CGEventTapCallBack callback, void* userInfo) {
    note("CGEventTapCreate " + std::to_string(location) + " " + std::to_string(place) + " " +
         std::to_string(options) + " " + hexadecimal(eventsOfInterest) +
         (userInfo != nullptr ? "" : " without user data"));
    if (!quartz().permits) {
        return nullptr;
    }
    theTap = {callback, userInfo};
    return handOutAs<CFMachPortRef>(new Object("CFMachPort"));
}

void CGEventTapEnable(CFMachPortRef port, bool enable) {
    note("CGEventTapEnable " + objectOf(port)->kind + (enable ? " true" : " false"));
}

CFDictionaryRef CGSessionCopyCurrentDictionary() {
    static const CFStringRef onConsole = constantText("kCGSSessionOnConsoleKey");
    static const CFStringRef locked = constantText("CGSSessionScreenIsLocked");
    note("CGSessionCopyCurrentDictionary");
    if (!quartz().hasSession) {
        return nullptr;
    }
    std::array<const void*, 2> keys{onConsole, locked};
    std::array<const void*, 2> values{quartz().isOnConsole ? kCFBooleanTrue : kCFBooleanFalse,
                                      kCFBooleanTrue};
    const CFIndex count = quartz().isLocked ? 2 : 1; // the last key is missing while unlocked
    return CFDictionaryCreate(kCFAllocatorDefault, keys.data(), values.data(), count,
                              &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
}

CFStringRef kAXTrustedCheckOptionPrompt = constantText("AXTrustedCheckOptionPrompt");

Boolean AXIsProcessTrusted() {
    note("AXIsProcessTrusted");
    return quartz().permits;
}

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options) {
    std::string line = "AXIsProcessTrustedWithOptions";
    for (const auto& [key, value] : entriesOf(options)) {
        line += " " + nameOf(key) + "=" + nameOf(value);
    }
    note(line);
    return quartz().permits;
}
