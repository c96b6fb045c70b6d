// The kinds of scope that a binding can have, in the order of the menu.
//
// Thread:  any. A label is in the interface language at the time of the call.
// Errors:  none.
#pragma once

#include "core/lang.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace glidemap {

enum class ScopeKind : std::uint8_t { global, app };

inline constexpr std::array allScopeKinds = {ScopeKind::global, ScopeKind::app};

std::string_view rawValue(ScopeKind kind);
std::string label(ScopeKind kind, const Lang& lang = Lang::shared());

} // namespace glidemap
