// The system counts its objects' owners by itself, and fails where one is released too often; what is
// released too rarely is found where the doubles count.
#include "doubles/foundation_objects.h"

#include "doubles/observation.h"

#import <AppKit/AppKit.h>

namespace glidemap::doubles {

Pool::Pool() : pool([[NSAutoreleasePool alloc] init]) {}

Pool::~Pool() {
    [static_cast<NSAutoreleasePool*>(pool) drain];
}

std::multiset<std::string> livingCocoaObjects() {
    return {};
}

// Only the application object is ever observed.
std::size_t forgetObservations() {
    return [[NSApplication sharedApplication] observationInfo] != nullptr ? 1 : 0;
}

} // namespace glidemap::doubles
