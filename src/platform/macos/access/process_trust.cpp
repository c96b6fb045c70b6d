#include "platform/macos/access/process_trust.h"

#include "platform/macos/core_foundation.h"

#include <ApplicationServices/ApplicationServices.h>

#include <utility>

namespace glidemap {

bool ProcessTrust::isTrusted() {
    return AXIsProcessTrusted();
}

bool ProcessTrust::isTrustedWithPrompt() {
    if (std::exchange(hasPrompted, true)) {
        return isTrusted();
    }
    const void* key = kAXTrustedCheckOptionPrompt;
    const void* value = kCFBooleanTrue;
    const Owned<CFDictionaryRef> options(CFDictionaryCreate(kCFAllocatorDefault, &key, &value, 1,
                                                            &kCFTypeDictionaryKeyCallBacks,
                                                            &kCFTypeDictionaryValueCallBacks));
    return AXIsProcessTrustedWithOptions(options.get());
}

} // namespace glidemap
