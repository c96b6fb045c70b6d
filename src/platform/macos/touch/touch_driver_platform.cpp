#include "platform/macos/touch/touch_driver_platform.h"

#include <CoreFoundation/CoreFoundation.h>

namespace glidemap {

namespace {

long count(driver::DeviceList list) {
    return CFArrayGetCount(static_cast<CFArrayRef>(list));
}

const void* valueAtIndex(driver::DeviceList list, long index) {
    return CFArrayGetValueAtIndex(static_cast<CFArrayRef>(list), index);
}

} // namespace

TouchDriverPlatform touchDriverPlatform() {
    return {multitouchSupport, [](void* /*handle*/) -> TouchDriverPlatform::ListAccess {
                return {count, valueAtIndex};
            }};
}

} // namespace glidemap
