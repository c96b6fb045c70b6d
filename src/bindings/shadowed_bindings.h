// Which bindings can never run, because one before them is for the same gesture and the same scope and both are enabled.
//
// Thread:  any; a pure function.
// Errors:  none.
#pragma once

#include "bindings/indexed_bindings.h"

#include <vector>

namespace glidemap {

// One for each binding, in the list's order.
std::vector<bool> shadowedBindings(const BindingList& bindings);

} // namespace glidemap
