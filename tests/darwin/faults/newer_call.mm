// expected: 'glidemapNewerCall' is only available on macOS 14.0 or newer
#include <Availability.h>

extern "C" void glidemapNewerCall() API_AVAILABLE(macos(14.0));

void unguarded() {
    glidemapNewerCall();
}
