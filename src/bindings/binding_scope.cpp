#include "bindings/binding_scope.h"

namespace glidemap {

std::string displayString(const BindingScope& scope, const Lang& lang) {
    const auto* app = std::get_if<AppScope>(&scope);
    return app != nullptr ? app->name : lang.choose("Global", "全局");
}

} // namespace glidemap

// The factor makes the hash depend on the order of the two texts.
std::size_t
std::hash<glidemap::AppScope>::operator()(const glidemap::AppScope& scope) const noexcept {
    constexpr std::size_t odd = 31;
    const std::hash<std::string> ofText;
    return ofText(scope.bundleID) * odd + ofText(scope.name);
}

std::size_t std::hash<glidemap::GlobalScope>::operator()(
    const glidemap::GlobalScope& /*scope*/) const noexcept {
    return 0;
}
