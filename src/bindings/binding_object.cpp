#include "bindings/binding_object.h"

#include <algorithm>

namespace glidemap {

std::optional<BindingKey> bindingKeyNamed(std::string_view name) {
    const auto* const found = std::find(bindingKeyNames.begin(), bindingKeyNames.end(), name);
    if (found == bindingKeyNames.end()) {
        return std::nullopt;
    }
    return static_cast<BindingKey>(found - bindingKeyNames.begin());
}

} // namespace glidemap
