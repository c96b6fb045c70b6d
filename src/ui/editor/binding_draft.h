// What the editor's fields hold, and what becomes of them: a binding, once they are complete.
//
// A field that the chosen kinds do not use keeps its value, so that choosing another kind and coming
// back loses nothing; it is not saved.
//
// Thread:  any; a plain value.
// Owner:   the editor.
// Errors:  an incomplete draft makes nothing.
#pragma once

#include "bindings/binding_store.h"
#include "bindings/gesture_binding.h"
#include "ui/editor/action_kind.h"
#include "ui/editor/running_app.h"
#include "ui/editor/scope_kind.h"

#include <optional>

namespace glidemap {

struct BindingDraft {
    GestureType gesture = allGestureTypes.front();
    ActionKind actionKind = ActionKind::keyboardShortcut;
    std::optional<KeyShortcut> shortcut;
    std::optional<RunningApp> launchTarget;
    ScopeKind scopeKind = ScopeKind::global;
    std::optional<RunningApp> scopeApp;

    // Takes over an existing binding; fields that it has nothing for keep their values.
    void load(const GestureBinding& binding);

    bool isValid() const { return missing() == Missing::nothing; }

    // The first thing that is needed for it to be saved, in the order of the form.
    enum class Missing { nothing, shortcut, launchTarget, scopeApp };
    Missing missing() const;

    // None while what they need is missing.
    std::optional<BindingAction> action() const;
    std::optional<BindingScope> scope() const;

    // The list with the draft in it: in the place of the edited binding, which keeps its identifier
    // and stays enabled or not; else, also if that is no longer there, as a new one at the end.
    std::optional<BindingList> writtenInto(BindingList list,
                                           const std::optional<Uuid>& edited) const;
};

} // namespace glidemap
