#include "doubles/journal.h"

#import <AppKit/AppKit.h>

#include <string>

using glidemap::test::note;

@implementation NSApplication
+ (NSApplication*)sharedApplication {
    static NSApplication* application = [NSApplication new];
    return application;
}
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy {
    note("setActivationPolicy " + std::to_string(activationPolicy));
    return YES;
}
- (void)activateIgnoringOtherApps:(BOOL)flag {
    note(flag ? "activateIgnoringOtherApps YES" : "activateIgnoringOtherApps NO");
}
@end
