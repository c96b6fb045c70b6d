// Finds bindings that can never run, because an earlier enabled binding has the same gesture and
// scope.
//
// Thread:  any; a pure function.
// Errors:  none.
#pragma once

#include "bindings/indexed_bindings.h"

#include <vector>

namespace glidemap {

// Returns, for each binding in the order of the list, whether it can never run.
std::vector<bool> shadowedBindings(const BindingList& bindings);

} // namespace glidemap
