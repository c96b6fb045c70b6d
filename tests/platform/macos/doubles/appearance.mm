#include "doubles/appearance.h"

#include "doubles/journal.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace glidemap::test {

namespace {

std::optional<std::string> match;

} // namespace

void resetAppearance() {
    [NSApplication sharedApplication]; // every program with windows has an application object
    match.reset();
}

void startWithAppearance(std::optional<std::string> bestMatch) {
    match = std::move(bestMatch);
}

void changeAppearance(std::optional<std::string> bestMatch) {
    NSApplication* const application = [NSApplication sharedApplication];
    [application willChangeValueForKey:@"effectiveAppearance"];
    match = std::move(bestMatch);
    [application didChangeValueForKey:@"effectiveAppearance"];
}

} // namespace glidemap::test

using namespace glidemap::test;

NSAppearanceName const NSAppearanceNameAqua = @"NSAppearanceNameAqua";
NSAppearanceName const NSAppearanceNameDarkAqua = @"NSAppearanceNameDarkAqua";

@implementation NSAppearance
- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray*)appearances {
    std::string line = "bestMatchFromAppearancesWithNames";
    NSAppearanceName best = nil;
    for (NSAppearanceName name in appearances) {
        line += std::string(" ") + [name UTF8String];
        if (match == [name UTF8String]) {
            // The returned text is equal, but not the same object.
            best = [NSString stringWithUTF8String:[name UTF8String]];
        }
    }
    note(line);
    return best;
}
@end

@implementation NSApplication (NSAppearanceCustomization)
- (NSAppearance*)effectiveAppearance {
    return [[[NSAppearance alloc] init] autorelease];
}
@end
