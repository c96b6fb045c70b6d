// A binding: the action to run when a gesture is recognised in a scope.
//
// Thread:  any; a plain value.
// Owner:   the binding store; `id` is generated once and never changes.
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
    bool enabled = true; // a disabled binding is stored and shown, but never matched

    friend bool operator==(const GestureBinding&, const GestureBinding&) = default;
};

} // namespace glidemap
