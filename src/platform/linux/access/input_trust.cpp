#include "platform/linux/access/input_trust.h"

#include <algorithm>
#include <utility>

namespace glidemap {

InputTrust::InputTrust(std::unique_ptr<InputNodes> inputNodes, std::function<void()> askUser)
    : nodes(std::move(inputNodes)), prompt(std::move(askUser)) {}

bool InputTrust::isTrusted() {
    return nodes->mayMakeDevices() &&
           std::ranges::all_of(nodes->touchpads(),
                               [&](const std::string& node) { return nodes->mayRead(node); });
}

bool InputTrust::isTrustedWithPrompt() {
    if (isTrusted()) {
        return true;
    }
    if (const auto ask = std::exchange(prompt, {})) {
        ask();
    }
    return false;
}

} // namespace glidemap
