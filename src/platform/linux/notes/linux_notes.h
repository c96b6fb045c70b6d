// What Linux adds to the interface's texts: which device nodes are missing, what the button for access does, and how to give
// access by hand where the question for it could not be put.
//
// Thread:  the main thread. Each question looks at the nodes anew.
// Owner:   the program. The prompt outlives it.
// Errors:  none.
#pragma once

#include "platform/linux/access/access_prompt.h"
#include "platform/linux/access/input_nodes.h"
#include "ui/settings/system_notes.h"

#include <memory>
#include <string>

namespace glidemap {

class LinuxNotes : public SystemNotes {
public:
    LinuxNotes(std::unique_ptr<InputNodes> inputNodes, const AccessPrompt& accessPrompt);

    std::string missingAccess(const Lang& lang) const override;
    std::string accessButton(const Lang& lang) const override;
    std::string launchAtLogin(const Lang& lang) const override;
    Observable& changes() override { return observers; }

    // Such as after the question for it was answered, or could not be put.
    void accessMayHaveChanged();

private:
    std::string missingNodes(const Lang& lang) const;
    std::string byHand(const Lang& lang) const;

    const std::unique_ptr<InputNodes> nodes;
    const AccessPrompt& prompt;
    Observable observers;
};

} // namespace glidemap
