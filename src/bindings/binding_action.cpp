#include "bindings/binding_action.h"

#include <array>

namespace glidemap {

namespace {

std::string displayTextOf(const KeyShortcut& shortcut, const Lang& lang) {
    return lang.choose("Shortcut ", "快捷键 ") + shortcut.displayString();
}

std::string displayTextOf(const LockScreen& /*action*/, const Lang& lang) {
    return lang.choose("Lock Screen", "锁定屏幕");
}

// Product names are not translated.
std::string displayTextOf(const MissionControl& /*action*/, const Lang& /*lang*/) {
    return "Mission Control";
}

std::string displayTextOf(const LaunchApp& launch, const Lang& lang) {
    return lang.choose("Open ", "打开 ") + launch.name;
}

} // namespace

std::string_view kindOf(const BindingAction& action) {
    constexpr std::array kinds = {"keyboardShortcut", "lockScreen", "missionControl", "launchApp"};
    static_assert(kinds.size() == std::variant_size_v<BindingAction>);
    return kinds[action.index()];
}

std::string displayString(const BindingAction& action, const Lang& lang) {
    return std::visit([&lang](const auto& kind) { return displayTextOf(kind, lang); }, action);
}

} // namespace glidemap
