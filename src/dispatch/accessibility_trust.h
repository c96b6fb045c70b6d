// Port: whether the system permits this program to read touches, to type, and to consume clicks.
//
// Thread:  the main thread; both queries return without waiting for the user.
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

    // Like isTrusted(). If permission is missing, also makes the system prompt the user, at most
    // once per run. Later queries reflect the user's decision.
    virtual bool isTrustedWithPrompt() = 0;
};

} // namespace glidemap
