// Checks whether the user allows this process to use the accessibility services. Posting keys and
// swallowing clicks require this permission.
//
// Thread:  the main thread.
// Owner:   the program.
// Errors:  none.
#pragma once

#include "dispatch/accessibility_trust.h"

namespace glidemap {

class ProcessTrust : public AccessibilityTrust {
public:
    bool isTrusted() override;

    // If the permission is missing, the first call also makes the system show a prompt, which links
    // to the system settings.
    bool isTrustedWithPrompt() override;

private:
    bool hasPrompted = false;
};

} // namespace glidemap
