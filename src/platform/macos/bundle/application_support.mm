#include "platform/macos/bundle/application_support.h"

#include "platform/macos/autorelease_pool.h"

#import <Foundation/Foundation.h>

namespace glidemap {

namespace {

std::optional<std::filesystem::path> firstFolder() {
    NSArray<NSURL*>* const folders =
        [[NSFileManager defaultManager] URLsForDirectory:NSApplicationSupportDirectory
                                               inDomains:NSUserDomainMask];
    NSURL* const first = [folders firstObject];
    if (first == nil) {
        return std::nullopt;
    }
    return std::filesystem::path([first fileSystemRepresentation]);
}

} // namespace

// Uses its own autorelease pool, because the program also calls this before the event loop runs.
std::optional<std::filesystem::path> applicationSupportFolder() {
    std::optional<std::filesystem::path> folder;
    withinAutoreleasePool([&folder] { folder = firstFolder(); });
    return folder;
}

} // namespace glidemap
