#include "bindings/binding_json.h"

#include <nlohmann/json.hpp>

namespace glidemap {

namespace {

using nlohmann::json; // sorts the keys of an object

json encoded(const KeyShortcut& shortcut) {
    return {{"kind", "keyboardShortcut"},
            {"shortcut", {{"keyCode", shortcut.keyCode}, {"modifiers", shortcut.modifiers}}}};
}

json encoded(const LockScreen& /*action*/) {
    return {{"kind", "lockScreen"}};
}

json encoded(const MissionControl& /*action*/) {
    return {{"kind", "missionControl"}};
}

json encoded(const LaunchApp& launch) {
    return {{"kind", "launchApp"}, {"bundleID", launch.bundleID}, {"name", launch.name}};
}

json encoded(const GlobalScope& /*scope*/) {
    return {{"kind", "global"}};
}

json encoded(const AppScope& app) {
    return {{"kind", "app"}, {"bundleID", app.bundleID}, {"name", app.name}};
}

template <typename Variant>
json encodedCase(const Variant& variant) {
    return std::visit([](const auto& kind) { return encoded(kind); }, variant);
}

json encoded(const GestureBinding& binding) {
    return {{"id", binding.id.text()},
            {"gesture", rawValue(binding.gesture)},
            {"action", encodedCase(binding.action)},
            {"scope", encodedCase(binding.scope)},
            {"enabled", binding.enabled}};
}

} // namespace

std::string encodeBindings(const std::vector<GestureBinding>& bindings) {
    constexpr int indent = 2;
    json array = json::array();
    for (const GestureBinding& binding : bindings) {
        array.push_back(encoded(binding));
    }
    // An application's name may contain any bytes. Invalid UTF-8 is replaced; failing would lose
    // the whole list.
    return array.dump(indent, ' ', false, json::error_handler_t::replace) + '\n';
}

} // namespace glidemap
