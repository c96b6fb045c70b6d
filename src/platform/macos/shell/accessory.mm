#include "platform/macos/shell/accessory.h"

#import <AppKit/AppKit.h>

namespace glidemap {

void becomeAccessory() {
    [[NSApplication sharedApplication] setActivationPolicy:NSApplicationActivationPolicyAccessory];
}

void comeForward() {
    [[NSApplication sharedApplication] activateIgnoringOtherApps:YES];
}

} // namespace glidemap
