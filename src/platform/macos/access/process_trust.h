// Checks whether the user allows this process to use the accessibility services, which posting keys
// and swallowing clicks require.
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

    // The system shows its prompt, which links to its settings.
    bool isTrustedWithPrompt() override;

private:
    bool hasPrompted = false;
};

} // namespace glidemap
