// Implements trust on Linux: the program is trusted if it can read every touchpad and create
// virtual devices.
//
// Each call checks the access rights again, because they may be granted or revoked while the
// program runs.
//
// Thread:  the main thread.
// Owner:   the program.
// Errors:  none.
#pragma once

#include "dispatch/accessibility_trust.h"
#include "platform/linux/access/input_nodes.h"

#include <functional>
#include <memory>

namespace glidemap {

class InputTrust : public AccessibilityTrust {
public:
    // `askUser` must show the prompt without waiting for the user.
    InputTrust(std::unique_ptr<InputNodes> inputNodes, std::function<void()> askUser);

    bool isTrusted() override;
    bool isTrustedWithPrompt() override;

private:
    std::unique_ptr<InputNodes> nodes;
    std::function<void()> prompt; // empty after the first prompt
};

} // namespace glidemap
