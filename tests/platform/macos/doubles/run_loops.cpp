// Ports in a run loop. On a Mac these functions replace those of Core Foundation, because the port
// is a fake.
#include "doubles/core_foundation_objects.h"
#include "doubles/journal.h"

#include <map>

namespace glidemap::test {

CoreFoundation& coreFoundation() {
    static CoreFoundation settings;
    return settings;
}

namespace {

// A port and its source retain each other until the port is invalidated.
std::map<CFMachPortRef, CFRunLoopSourceRef> sources;

CFRunLoopSourceRef tied(CFMachPortRef port, CFRunLoopSourceRef source) {
    CFRetain(port);
    CFRetain(source);
    sources[port] = source;
    return source;
}

} // namespace

} // namespace glidemap::test

using namespace glidemap::test;

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef /*allocator*/, CFMachPortRef port,
                                                 CFIndex order) {
    note("CFMachPortCreateRunLoopSource " + objectOf(port)->kind + " " + std::to_string(order));
    return coreFoundation().makesRunLoopSources
               ? tied(port, handOutAs<CFRunLoopSourceRef>(new Object("CFRunLoopSource")))
               : nullptr;
}

void CFMachPortInvalidate(CFMachPortRef port) {
    note("CFMachPortInvalidate " + objectOf(port)->kind);
    if (const auto tie = sources.extract(port)) {
        CFRelease(tie.mapped());
        CFRelease(tie.key());
    }
}

void CFRunLoopAddSource(CFRunLoopRef rl, CFRunLoopSourceRef source, CFRunLoopMode mode) {
    note("CFRunLoopAddSource " + nameOf(rl) + " " + objectOf(source)->kind + " " + nameOf(mode));
    CFRetain(source); // the run loop owns the source until its removal
}

void CFRunLoopRemoveSource(CFRunLoopRef rl, CFRunLoopSourceRef source, CFRunLoopMode mode) {
    note("CFRunLoopRemoveSource " + nameOf(rl) + " " + objectOf(source)->kind + " " + nameOf(mode));
    CFRelease(source);
}
