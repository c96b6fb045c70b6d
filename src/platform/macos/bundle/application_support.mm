#include "platform/macos/bundle/application_support.h"

#import <Foundation/Foundation.h>

namespace glidemap {

std::optional<std::filesystem::path> applicationSupportFolder() {
    NSArray<NSURL*>* const folders =
        [[NSFileManager defaultManager] URLsForDirectory:NSApplicationSupportDirectory
                                               inDomains:NSUserDomainMask];
    NSURL* const first = [folders firstObject];
    if (first == nil) {
        return std::nullopt;
    }
    return std::filesystem::path([first fileSystemRepresentation]);
}

} // namespace glidemap
