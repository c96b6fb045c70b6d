// On a Mac, the system counts the owners of its objects, and crashes on an excess release. Missing
// releases are not detected here, but by the fakes on Linux.
#include "doubles/foundation_objects.h"

#include "doubles/observation.h"

#import <AppKit/AppKit.h>

namespace glidemap::test {

Pool::Pool() : pool([[NSAutoreleasePool alloc] init]) {}

Pool::~Pool() {
    [static_cast<NSAutoreleasePool*>(pool) drain];
}

std::multiset<std::string> livingCocoaObjects() {
    return {};
}

// The program observes only the application object.
std::size_t forgetObservations() {
    return [[NSApplication sharedApplication] observationInfo] != nullptr ? 1 : 0;
}

} // namespace glidemap::test
