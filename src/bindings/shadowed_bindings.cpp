#include "bindings/shadowed_bindings.h"

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>

namespace glidemap {

namespace {

// The gesture, and the application's identifier or nullopt for all applications. The application's
// name does not matter for matching.
using Trigger = std::pair<GestureType, std::optional<std::string>>;

Trigger triggerOf(const GestureBinding& binding) {
    const auto* const app = std::get_if<AppScope>(&binding.scope);
    return {binding.gesture, app != nullptr ? std::optional(app->bundleID) : std::nullopt};
}

} // namespace

std::vector<bool> shadowedBindings(const BindingList& bindings) {
    std::set<Trigger> seen;
    std::vector<bool> shadowed;
    shadowed.reserve(bindings.size());
    for (const GestureBinding& binding : bindings) {
        shadowed.push_back(binding.enabled && !seen.insert(triggerOf(binding)).second);
    }
    return shadowed;
}

} // namespace glidemap
