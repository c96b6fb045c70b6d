#pragma once

typedef unsigned int FourCharCode;
typedef FourCharCode AEEventClass;
typedef FourCharCode AEEventID;

enum {
    kCoreEventClass = 0x61657674,      // 'aevt'
    kAEReopenApplication = 0x72617070, // 'rapp'
    kAEQuitApplication = 0x71756974,   // 'quit'
};
