// Implements SystemNotes on Linux: explains which devices the program cannot access, what the
// access button does, how to grant access manually if the prompt failed, when the login item starts
// the program, and which gestures the desktop itself uses.
//
// Thread:  the main thread. missingAccess() checks the nodes on each call.
// Owner:   the program. The prompt must outlive this object.
// Errors:  none.
#pragma once

#include "platform/linux/access/access_prompt.h"
#include "platform/linux/access/input_nodes.h"
#include "platform/linux/shell/desktop_gestures.h"
#include "ui/settings/system_notes.h"

#include <memory>
#include <string>

namespace glidemap {

class LinuxNotes : public SystemNotes {
public:
    LinuxNotes(std::unique_ptr<InputNodes> inputNodes, const AccessPrompt& accessPrompt,
               DesktopSession desktopSession = currentDesktopSession());

    std::string missingAccess(const Lang& lang) const override;
    std::string accessButton(const Lang& lang) const override;
    std::string launchAtLogin(const Lang& lang) const override;
    std::string systemGesture(GestureType gesture, const Lang& lang) const override;
    Observable& changes() override { return observers; }

    // Must be called when access may have changed, for example after a prompt has closed or failed.
    void accessMayHaveChanged();

private:
    std::string missingNodes(const Lang& lang) const;
    std::string byHand(const Lang& lang) const;

    const std::unique_ptr<InputNodes> nodes;
    const AccessPrompt& prompt;
    const DesktopSession session;
    Observable observers;
};

} // namespace glidemap
