// How a port is heard in a run loop. On a Mac these stand before Core Foundation's own, because the
// port is a double.
#include "doubles/core_foundation_objects.h"
#include "doubles/journal.h"

namespace glidemap::doubles {

CoreFoundation& coreFoundation() {
    static CoreFoundation settings;
    return settings;
}

} // namespace glidemap::doubles

using namespace glidemap::doubles;

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef /*allocator*/, CFMachPortRef port,
                                                 CFIndex order) {
    note("CFMachPortCreateRunLoopSource " + objectOf(port)->kind + " " + std::to_string(order));
    return coreFoundation().makesRunLoopSources
               ? handOutAs<CFRunLoopSourceRef>(new Object("CFRunLoopSource"))
               : nullptr;
}

void CFRunLoopAddSource(CFRunLoopRef rl, CFRunLoopSourceRef source, CFRunLoopMode mode) {
    note("CFRunLoopAddSource " + nameOf(rl) + " " + objectOf(source)->kind + " " + nameOf(mode));
    CFRetain(source); // as long as it is in the loop
}

void CFRunLoopRemoveSource(CFRunLoopRef rl, CFRunLoopSourceRef source, CFRunLoopMode mode) {
    note("CFRunLoopRemoveSource " + nameOf(rl) + " " + objectOf(source)->kind + " " + nameOf(mode));
    CFRelease(source);
}
