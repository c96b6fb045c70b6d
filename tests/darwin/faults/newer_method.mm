// expected: 'glidemapNewerMethod' is only available on macOS 14.0 or newer
#import <AppKit/AppKit.h>
#include <Availability.h>

@interface NSWorkspace (Newer)
- (void)glidemapNewerMethod API_AVAILABLE(macos(14.0));
@end

void unguarded() {
    [[NSWorkspace sharedWorkspace] glidemapNewerMethod];
}
