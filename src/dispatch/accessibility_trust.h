// Port: whether the system lets this program read touches, type and take clicks out.
//
// Thread:  the main thread; neither question waits for the user.
// Errors:  none.
#pragma once

namespace glidemap {

class AccessibilityTrust {
public:
    AccessibilityTrust() = default;
    AccessibilityTrust(const AccessibilityTrust&) = delete;
    AccessibilityTrust& operator=(const AccessibilityTrust&) = delete;
    virtual ~AccessibilityTrust() = default;

    virtual bool isTrusted() = 0;

    // The same; and if it is not, has the system ask the user, at most once in a run. The user's
    // answer shows in later questions.
    virtual bool isTrustedWithPrompt() = 0;
};

} // namespace glidemap
