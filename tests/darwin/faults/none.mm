// The correct form of each fault in the other files. This file must compile.
#import <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <Availability.h>
#include <sys/socket.h>

#include <charconv>
#include <cstdint>
#include <type_traits>

static_assert(std::is_same_v<std::int64_t, long long>);

extern "C" void glidemapNewerCall() API_AVAILABLE(macos(14.0));

@interface NSWorkspace (Newer)
- (void)glidemapNewerMethod API_AVAILABLE(macos(14.0));
@end

CGEventRef (*create)(CGEventSourceRef, CGKeyCode, bool) = &CGEventCreateKeyboardEvent;

void guarded() {
    if (__builtin_available(macOS 14.0, *)) {
        glidemapNewerCall();
        [[NSWorkspace sharedWorkspace] glidemapNewerMethod];
    }
}

void open(NSURL* location) {
    [[NSWorkspace sharedWorkspace] openURL:location];
}

char* write(char* first, char* last) {
    return std::to_chars(first, last, 5).ptr;
}

int open() {
    return socket(AF_UNIX, SOCK_STREAM, 0);
}
