// A touch driver that records its calls and has no touchpad. It is compiled several times:
// CMakeLists.txt lists the variants and their definitions, which omit functions or change the
// device list.
#include "input/touch_driver.h"

#include <algorithm>
#include <string>
#include <vector>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

using glidemap::MTTouch;
using namespace glidemap::driver;

std::string calls;
std::vector<ContactCallback> callbacks;

// A device is a pointer to a letter, which identifies the device. A null entry is a detached
// device.
char letters[] = {'a', 'b', 'c'};
#if defined(LIST_IS_EMPTY)
std::vector<const void*> devices;
#elif defined(LIST_HAS_NULLS)
std::vector<const void*> devices = {nullptr, &letters[0], nullptr, &letters[1], nullptr};
#elif defined(LIST_HAS_ONLY_NULLS)
std::vector<const void*> devices = {nullptr, nullptr};
#else
std::vector<const void*> devices = {&letters[0], &letters[1], &letters[2]};
#endif

void note(const std::string& call) {
    calls += (calls.empty() ? "" : "; ") + call;
}

std::string nameOf(Device device) {
    return device != nullptr ? std::string(1, *static_cast<char*>(device)) : "null";
}

} // namespace

#ifndef WITHOUT_CREATE
EXPORTED const void* MTDeviceCreateList() {
    note("create list");
#ifdef LIST_IS_NULL
    return nullptr;
#else
    return &devices;
#endif
}
#endif

#ifndef WITHOUT_REGISTER
EXPORTED void MTRegisterContactFrameCallback(Device device, ContactCallback callback) {
    note("register " + nameOf(device));
    callbacks.push_back(callback);
}
#endif

#ifndef WITHOUT_UNREGISTER
EXPORTED void MTUnregisterContactFrameCallback(Device device, ContactCallback callback) {
    const auto found = std::find(callbacks.begin(), callbacks.end(), callback);
    note("unregister " + nameOf(device) + (found == callbacks.end() ? " (never registered)" : ""));
    if (found != callbacks.end()) {
        callbacks.erase(found);
    }
}
#endif

#ifndef WITHOUT_START
EXPORTED void MTDeviceStart(Device device, int mode) {
    note("start " + nameOf(device) + " " + std::to_string(mode));
}
#endif

#ifndef WITHOUT_STOP
EXPORTED void MTDeviceStop(Device device) {
    note("stop " + nameOf(device));
}
#endif

#ifndef WITHOUT_LIST_ACCESS
EXPORTED long GlidemapDeviceListCount(DeviceList list) {
    return static_cast<long>(static_cast<const std::vector<const void*>*>(list)->size());
}

EXPORTED const void* GlidemapDeviceListValueAtIndex(DeviceList list, long index) {
    const auto& entries = *static_cast<const std::vector<const void*>*>(list);
    return entries[static_cast<std::size_t>(index)];
}
#endif

// The test calls the following functions.

EXPORTED const char* TestDriverCalls() {
    return calls.c_str();
}

// Attaches the first `count` of the three devices.
EXPORTED void TestDriverAttach(int count) {
    devices.clear();
    for (int index = 0; index < count; ++index) {
        devices.push_back(&letters[index]);
    }
}

// Libraries are never unloaded, so a test begins by resetting the state of the previous test.
EXPORTED void TestDriverReset() {
    calls.clear();
    callbacks.clear();
}

EXPORTED int TestDriverReport(const MTTouch* records, int count, double timestamp) {
    return callbacks.empty() ? -1 : callbacks.front()(&letters[0], records, count, timestamp, 99);
}
