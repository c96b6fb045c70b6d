// A replay driver that accepts every report and delivers none.
#include "input/touch_driver.h"

#define GLIDEMAP_EXPORT extern "C" [[gnu::visibility("default")]]

using namespace glidemap;

namespace {
int list = 0;
int device = 0;
} // namespace

GLIDEMAP_EXPORT driver::DeviceList MTDeviceCreateList() {
    return &list;
}
GLIDEMAP_EXPORT long GlidemapDeviceListCount(driver::DeviceList) {
    return 1;
}
GLIDEMAP_EXPORT const void* GlidemapDeviceListValueAtIndex(driver::DeviceList, long) {
    return &device;
}
GLIDEMAP_EXPORT void MTRegisterContactFrameCallback(driver::Device, driver::ContactCallback) {}
GLIDEMAP_EXPORT void MTUnregisterContactFrameCallback(driver::Device, driver::ContactCallback) {}
GLIDEMAP_EXPORT void MTDeviceStart(driver::Device, std::int32_t) {}
GLIDEMAP_EXPORT void MTDeviceStop(driver::Device) {}
GLIDEMAP_EXPORT void GlidemapReplayEnablePushing() {}
GLIDEMAP_EXPORT void GlidemapReplayPush(const MTTouch*, std::int32_t, double) {}
