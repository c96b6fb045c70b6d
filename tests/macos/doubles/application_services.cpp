#include "doubles/core_foundation_objects.h"
#include "doubles/journal.h"
#include "doubles/quartz.h"

#include <ApplicationServices/ApplicationServices.h>

#include <sstream>

namespace glidemap::doubles {

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

KeyboardEvent* eventOf(CGEventRef event) {
    return static_cast<KeyboardEvent*>(objectOf(event));
}

std::string hexadecimal(std::uint64_t value) {
    std::ostringstream out;
    out << std::hex << std::showbase << value;
    return out.str();
}

} // namespace

} // namespace glidemap::doubles

using namespace glidemap::doubles;

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID stateID) {
    note("CGEventSourceCreate " + std::to_string(stateID));
    return quartz().makesEventSources
               ? reinterpret_cast<CGEventSourceRef>(new Object("CGEventSource"))
               : nullptr;
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode virtualKey, bool keyDown) {
    const bool fromSource = source != nullptr && objectOf(source)->kind == "CGEventSource";
    note("CGEventCreateKeyboardEvent " + std::string(fromSource ? "source " : "no source ") +
         std::to_string(virtualKey) + (keyDown ? " down" : " up"));
    if (quartz().eventsThatCanBeMade-- <= 0) {
        return nullptr;
    }
    return reinterpret_cast<CGEventRef>(new KeyboardEvent(virtualKey, keyDown));
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    note("CGEventSetFlags " + eventOf(event)->text() + " " + hexadecimal(flags));
}

void CGEventPost(CGEventTapLocation tap, CGEventRef event) {
    note("CGEventPost " + std::to_string(tap) + " " + eventOf(event)->text());
}
