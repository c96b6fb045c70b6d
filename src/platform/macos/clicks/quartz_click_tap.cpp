#include "platform/macos/clicks/quartz_click_tap.h"

#include <ApplicationServices/ApplicationServices.h>

#include <utility>

namespace glidemap {

namespace {

constexpr CGEventMask watched =
    CGEventMaskBit(kCGEventLeftMouseDown) | CGEventMaskBit(kCGEventLeftMouseUp) |
    CGEventMaskBit(kCGEventRightMouseDown) | CGEventMaskBit(kCGEventRightMouseUp);

constexpr CFIndex sourceOrder = 0;

ClickEventType typeOf(CGEventType type) {
    switch (type) {
    case kCGEventLeftMouseDown:
        return ClickEventType::leftMouseDown;
    case kCGEventLeftMouseUp:
        return ClickEventType::leftMouseUp;
    case kCGEventRightMouseDown:
        return ClickEventType::rightMouseDown;
    case kCGEventRightMouseUp:
        return ClickEventType::rightMouseUp;
    case kCGEventTapDisabledByTimeout:
        return ClickEventType::tapDisabledByTimeout;
    case kCGEventTapDisabledByUserInput:
        return ClickEventType::tapDisabledByUserInput;
    default:
        return ClickEventType::other;
    }
}

bool hasButton(ClickEventType type) {
    switch (type) {
    case ClickEventType::leftMouseDown:
    case ClickEventType::leftMouseUp:
    case ClickEventType::rightMouseDown:
    case ClickEventType::rightMouseUp:
        return true;
    default:
        return false; // notifications about the tap itself may come without an event
    }
}

ClickEvent clickOf(CGEventType type, CGEventRef event) {
    const ClickEventType clickType = typeOf(type);
    const bool asks = hasButton(clickType);
    return {clickType, asks ? CGEventGetIntegerValueField(event, kCGMouseEventButtonNumber) : 0};
}

CGEventRef answer(CGEventTapProxy /*proxy*/, CGEventType type, CGEventRef event, void* tap) {
    if (tap == nullptr) {
        return event;
    }
    const auto verdict = static_cast<QuartzClickTap*>(tap)->verdict(clickOf(type, event));
    return verdict == ClickTap::Verdict::drop ? nullptr : event;
}

} // namespace

QuartzClickTap::~QuartzClickTap() {
    setEnabled(false);
    remove();
}

// CGEventTapCreate() enables the tap, but no events arrive until the source has been added to the
// run loop.
bool QuartzClickTap::create(Callback callback) {
    decide = std::move(callback);
    Owned<CFMachPortRef> made(CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap,
                                               kCGEventTapOptionDefault, watched, &answer, this));
    if (!made) {
        return false;
    }
    Owned<CFRunLoopSourceRef> newSource(
        CFMachPortCreateRunLoopSource(kCFAllocatorDefault, made.get(), sourceOrder));
    if (!newSource) {
        return false;
    }
    CFRunLoopAddSource(CFRunLoopGetMain(), newSource.get(), kCFRunLoopCommonModes);
    port = std::move(made);
    source = std::move(newSource);
    return true;
}

void QuartzClickTap::setEnabled(bool enabled) {
    if (port) {
        CGEventTapEnable(port.get(), enabled);
    }
}

// Invalidates the port. Otherwise the port and its source would retain each other, and the tap
// would stay in the event stream.
void QuartzClickTap::remove() {
    if (source) {
        CFRunLoopRemoveSource(CFRunLoopGetMain(), source.get(), kCFRunLoopCommonModes);
    }
    source.reset();
    if (port) {
        CFMachPortInvalidate(port.get());
    }
    port.reset();
}

} // namespace glidemap
