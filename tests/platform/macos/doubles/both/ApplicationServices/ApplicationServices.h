#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct __CGEvent* CGEventRef;
typedef struct __CGEventSource* CGEventSourceRef;
typedef uint16_t CGKeyCode;
typedef uint64_t CGEventFlags;
enum : CGEventFlags {
    kCGEventFlagMaskShift = 0x00020000,
    kCGEventFlagMaskControl = 0x00040000,
    kCGEventFlagMaskAlternate = 0x00080000,
    kCGEventFlagMaskCommand = 0x00100000,
};

typedef int32_t CGEventSourceStateID;
enum : CGEventSourceStateID {
    kCGEventSourceStatePrivate = -1,
    kCGEventSourceStateCombinedSessionState = 0,
    kCGEventSourceStateHIDSystemState = 1,
};

typedef uint32_t CGEventType;
enum : CGEventType {
    kCGEventNull = 0,
    kCGEventLeftMouseDown = 1,
    kCGEventLeftMouseUp = 2,
    kCGEventRightMouseDown = 3,
    kCGEventRightMouseUp = 4,
    kCGEventMouseMoved = 5,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF,
};

typedef uint32_t CGEventField;
enum : CGEventField {
    kCGMouseEventButtonNumber = 3,
};

typedef uint64_t CGEventMask;
#define CGEventMaskBit(eventType) ((CGEventMask)1 << (eventType))

typedef uint32_t CGEventTapPlacement;
enum : CGEventTapPlacement {
    kCGHeadInsertEventTap = 0,
    kCGTailAppendEventTap,
};

typedef uint32_t CGEventTapOptions;
enum : CGEventTapOptions {
    kCGEventTapOptionDefault = 0,
    kCGEventTapOptionListenOnly = 1,
};

typedef struct __CGEventTapProxy* CGEventTapProxy;
typedef CGEventRef (*CGEventTapCallBack)(CGEventTapProxy proxy, CGEventType type, CGEventRef event,
                                         void* userInfo);

typedef uint32_t CGEventTapLocation;
enum : CGEventTapLocation {
    kCGHIDEventTap = 0,
    kCGSessionEventTap,
    kCGAnnotatedSessionEventTap,
};

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID stateID);
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode virtualKey, bool keyDown);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);

int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);

CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place,
                               CGEventTapOptions options, CGEventMask eventsOfInterest,
                               CGEventTapCallBack callback, void* userInfo);
void CGEventTapEnable(CFMachPortRef tap, bool enable);

CFDictionaryRef CGSessionCopyCurrentDictionary(void);

extern CFStringRef kAXTrustedCheckOptionPrompt;
Boolean AXIsProcessTrusted(void);
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);

#ifdef __cplusplus
}
#endif
