// One binding: when this gesture is recognised, and this scope applies, run this action.
//
// Thread:  any; a plain value.
// Owner:   the binding store; `id` is made once and stays.
// Errors:  none.
#pragma once

#include "bindings/binding_action.h"
#include "bindings/binding_scope.h"
#include "core/gesture_type.h"
#include "core/uuid.h"

namespace glidemap {

struct GestureBinding {
    Uuid id = Uuid::generate();
    GestureType gesture{};
    BindingAction action;
    BindingScope scope;
    bool enabled = true; // one that is not is kept and shown, and never matched

    friend bool operator==(const GestureBinding&, const GestureBinding&) = default;
};

} // namespace glidemap
