#include "platform/macos/autorelease_pool.h"

#import <Foundation/Foundation.h>

namespace glidemap {

void withinAutoreleasePool(const std::function<void()>& work) {
    @autoreleasepool {
        work();
    }
}

} // namespace glidemap
