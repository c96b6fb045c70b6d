// The values of the editor's fields, and the binding that they make once they are complete.
//
// A field that the chosen kinds do not use keeps its value but is not saved. So switching the kind
// back and forth loses nothing.
//
// Thread:  any; a plain value.
// Owner:   the editor.
// Errors:  an incomplete draft returns nullopt.
#pragma once

#include "bindings/binding_store.h"
#include "bindings/gesture_binding.h"
#include "core/lang.h"
#include "ui/editor/running_app.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// The kinds of action and of scope that a binding can have, in the order of the menus. A label is in
// the interface language at the time of the call.
enum class ActionKind : std::uint8_t { keyboardShortcut, lockScreen, missionControl, launchApp };

inline constexpr std::array allActionKinds = {
    ActionKind::keyboardShortcut,
    ActionKind::lockScreen,
    ActionKind::missionControl,
    ActionKind::launchApp,
};

std::string label(ActionKind kind, const Lang& lang = Lang::shared());

enum class ScopeKind : std::uint8_t { global, app };

inline constexpr std::array allScopeKinds = {ScopeKind::global, ScopeKind::app};

std::string_view rawValue(ScopeKind kind);
std::string label(ScopeKind kind, const Lang& lang = Lang::shared());

struct BindingDraft {
    GestureType gesture = allGestureTypes.front();
    ActionKind actionKind = ActionKind::keyboardShortcut;
    std::optional<KeyShortcut> shortcut;
    std::optional<RunningApp> launchTarget;
    ScopeKind scopeKind = ScopeKind::global;
    std::optional<RunningApp> scopeApp;

    // Loads an existing binding. Fields that the binding does not have keep their values.
    void load(const GestureBinding& binding);

    bool isValid() const { return missing() == Missing::nothing; }

    // The first missing field, in the order of the form.
    enum class Missing { nothing, shortcut, launchTarget, scopeApp };
    Missing missing() const;

    // Returns nullopt while the field of the chosen kind is missing.
    std::optional<BindingAction> action() const;
    std::optional<BindingScope> scope() const;

    // Returns the list with the draft in the place of the edited binding, which keeps its
    // identifier and its enabled state. If the list does not contain that binding, or for a new
    // one, appends it.
    std::optional<BindingList> writtenInto(BindingList list,
                                           const std::optional<Uuid>& edited) const;
};

} // namespace glidemap
