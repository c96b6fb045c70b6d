#include "bindings/indexed_bindings.h"

#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

std::size_t placeOf(GestureType gesture) {
    return static_cast<std::size_t>(gesture);
}

} // namespace

IndexedBindings::IndexedBindings(BindingList list) : bindings(std::move(list)) {
    for (const GestureBinding& binding : bindings) {
        if (binding.enabled) {
            add(binding);
        }
    }
    std::stable_sort(forApps.begin(), forApps.end());
}

void IndexedBindings::add(const GestureBinding& binding) {
    const std::size_t place = placeOf(binding.gesture);
    enabled.set(place);
    if (const auto* app = std::get_if<AppScope>(&binding.scope)) {
        forApps.push_back({binding.gesture, app->bundleID, &binding});
    } else if (firstGlobal[place] == nullptr) {
        firstGlobal[place] = &binding;
    }
}

const GestureBinding* IndexedBindings::match(GestureType gesture,
                                             std::optional<std::string_view> frontmost) const {
    if (frontmost) {
        const ForApp key{gesture, *frontmost};
        const auto found = std::lower_bound(forApps.begin(), forApps.end(), key);
        if (found != forApps.end() && !(key < *found)) {
            return found->binding;
        }
    }
    return firstGlobal[placeOf(gesture)];
}

bool IndexedBindings::hasEnabled(GestureType gesture) const {
    return enabled.test(placeOf(gesture));
}

} // namespace glidemap
