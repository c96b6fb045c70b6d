// On Linux the program is trusted when every touchpad can be read and virtual devices can be made.
//
// Each question looks anew, so that access that is given or taken while the program runs shows.
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
    // The prompt asks the user and does not wait for the answer.
    InputTrust(std::unique_ptr<InputNodes> inputNodes, std::function<void()> askUser);

    bool isTrusted() override;
    bool isTrustedWithPrompt() override;

private:
    std::unique_ptr<InputNodes> nodes;
    std::function<void()> prompt; // empty once the user has been asked
};

} // namespace glidemap
