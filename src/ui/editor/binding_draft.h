// The values of the editor's fields. When all required values are set, the draft can create the
// binding.
//
// A field that the chosen kinds of action and scope do not use keeps its value but is not saved.
// Thus, nothing is lost when the user switches to another kind and back.
//
// Thread:  any; a plain value.
// Owner:   the editor.
// Errors:  the functions that create a value return nullopt while the draft is incomplete.
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

// The kinds of actions and scopes that a binding can have, in the order of the menus. label()
// returns a kind's text in the given language.
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

    // Loads an existing binding. Fields that the binding does not use keep their values.
    void load(const GestureBinding& binding);

    bool isValid() const { return missing() == Missing::nothing; }

    // The first missing field in the order of the form; `nothing` if the draft is complete.
    enum class Missing { nothing, shortcut, launchTarget, scopeApp };
    Missing missing() const;

    // Returns nullopt while the field that the chosen kind needs is empty.
    std::optional<BindingAction> action() const;
    std::optional<BindingScope> scope() const;

    // Writes the draft into the binding with the identifier `edited`, and returns the list. Does
    // not change whether that binding is enabled. Appends a new binding if `edited` is nullopt or
    // not in the list. Returns nullopt if the draft is incomplete.
    std::optional<BindingList> writtenInto(BindingList list,
                                           const std::optional<Uuid>& edited) const;
};

} // namespace glidemap
