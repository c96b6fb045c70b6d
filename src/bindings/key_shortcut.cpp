#include "bindings/key_shortcut.h"

#include "dispatch/key_names.h"

#include <array>
#include <string_view>
#include <utility>

namespace glidemap {

std::string KeyShortcut::displayString() const {
    using Symbol = std::pair<std::uint64_t, std::string_view>;
    constexpr std::array symbols = {
        Symbol(modifier::control, "⌃"),
        Symbol(modifier::option, "⌥"),
        Symbol(modifier::shift, "⇧"),
        Symbol(modifier::command, "⌘"),
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
