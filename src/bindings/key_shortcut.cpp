#include "bindings/key_shortcut.h"

#include "dispatch/key_names.h"

#include <string_view>
#include <utility>

namespace glidemap {

std::string KeyShortcut::displayString() const {
    constexpr std::pair<std::uint64_t, std::string_view> symbols[] = {
        {modifier::control, "⌃"},
        {modifier::option, "⌥"},
        {modifier::shift, "⇧"},
        {modifier::command, "⌘"},
    };
    std::string shown;
    for (const auto& [mask, symbol] : symbols) {
        if ((modifiers & mask) != 0) {
            shown += symbol;
        }
    }
    return shown + KeyNames::name(keyCode);
}

} // namespace glidemap
