// The system counts its objects' owners, and fails on a release too many. The fakes detect a
// missing release on Linux.
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

// Only the application object is observed.
std::size_t forgetObservations() {
    return [[NSApplication sharedApplication] observationInfo] != nullptr ? 1 : 0;
}

} // namespace glidemap::doubles
