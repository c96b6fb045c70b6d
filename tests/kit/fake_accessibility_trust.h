// A fake accessibility permission, which the test sets. It records the queries.
//
// Thread:  the test's main thread.
#pragma once

#include "dispatch/accessibility_trust.h"

#include <functional>
#include <string>

namespace glidemap::test {

class FakeAccessibilityTrust : public AccessibilityTrust {
public:
    bool isTrusted() override {
        ++timesAsked;
        note("trusted?");
        return trusted;
    }
    bool isTrustedWithPrompt() override {
        note("trusted? with the prompt");
        return trusted;
    }

    bool trusted = true;
    int timesAsked = 0; // queries without a prompt
    std::function<void(const std::string& call)> onCall;

private:
    void note(const char* call) const {
        if (onCall) {
            onCall(call);
        }
    }
};

} // namespace glidemap::test
