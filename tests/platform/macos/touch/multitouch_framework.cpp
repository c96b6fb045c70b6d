// A fake trackpad framework. Its device list is a Core Foundation array with a null element, and it
// records every call.
#include "input/touch_driver.h"

#include <cstdint>

using glidemap::driver::ContactCallback;

extern "C" {

#define EXPORTED __attribute__((visibility("default")))

// The test program exports these two functions.
void noteInJournal(const char* line);
const void* trackpadList();

EXPORTED const void* MTDeviceCreateList();
EXPORTED void MTRegisterContactFrameCallback(void* device, ContactCallback callback);

const void* MTDeviceCreateList() {
    noteInJournal("MTDeviceCreateList");
    return trackpadList();
}

void MTRegisterContactFrameCallback(void* device, ContactCallback callback) {
    noteInJournal("MTRegisterContactFrameCallback");
    callback(device, nullptr, 0, 1.5, 1);
}

#ifndef WITHOUT_START
EXPORTED void MTDeviceStart(void* device, std::int32_t mode);
void MTDeviceStart(void* /*device*/, std::int32_t mode) {
    noteInJournal(mode == 0 ? "MTDeviceStart 0" : "MTDeviceStart in another mode");
}
#endif

#ifndef WITHOUT_STOP_SIDE
EXPORTED void MTUnregisterContactFrameCallback(void* device, ContactCallback callback);
void MTUnregisterContactFrameCallback(void* /*device*/, ContactCallback /*callback*/) {
    noteInJournal("MTUnregisterContactFrameCallback");
}

EXPORTED void MTDeviceStop(void* device);
void MTDeviceStop(void* /*device*/) {
    noteInJournal("MTDeviceStop");
}
#endif
}
