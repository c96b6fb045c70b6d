// Where a binding can hold, in the order in which it is offered.
//
// Thread:  any; a label is in the language at the moment of the call.
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
