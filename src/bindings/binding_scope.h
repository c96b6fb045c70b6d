// Where a binding applies: everywhere, or only while one application is frontmost.
//
// Thread:  any; a plain value.
// Errors:  none.
#pragma once

#include "core/lang.h"

#include <cstddef>
#include <functional>
#include <string>
#include <variant>

namespace glidemap {

struct GlobalScope {
    friend bool operator==(const GlobalScope&, const GlobalScope&) = default;
};

// Equality and hash use both fields, although matching uses only the identifier.
struct AppScope {
    std::string bundleID;
    std::string name;

    friend bool operator==(const AppScope&, const AppScope&) = default;
};

using BindingScope = std::variant<GlobalScope, AppScope>;

// Returns the scope's text for the user, in the language that `lang` has at the time of the call.
std::string displayString(const BindingScope& scope, const Lang& lang = Lang::shared());

} // namespace glidemap

template <>
struct std::hash<glidemap::AppScope> {
    std::size_t operator()(const glidemap::AppScope& scope) const noexcept;
};

template <>
struct std::hash<glidemap::GlobalScope> {
    std::size_t operator()(const glidemap::GlobalScope& scope) const noexcept;
};
