// Whether the user has let this process use the accessibility services, which posting keys and
// taking clicks out go by.
//
// Thread:  the main thread.
// Owner:   the program makes one.
// Errors:  none.
#pragma once

#include "dispatch/accessibility_trust.h"

namespace glidemap {

class ProcessTrust : public AccessibilityTrust {
public:
    bool isTrusted() override;

    // The system shows its prompt, and opens its settings from there.
    bool isTrustedWithPrompt() override;

private:
    bool hasPrompted = false;
};

} // namespace glidemap
