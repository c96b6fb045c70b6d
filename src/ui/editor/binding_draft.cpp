#include "ui/editor/binding_draft.h"

#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

template <class Kind>
std::optional<RunningApp> appOf(const Kind& holder) {
    return RunningApp{.bundleID = holder.bundleID, .name = holder.name};
}

// Copies an action into the draft, with one overload for each kind of action.
struct LoadAction {
    BindingDraft& draft;

    void operator()(const KeyShortcut& shortcut) const {
        draft.actionKind = ActionKind::keyboardShortcut;
        draft.shortcut = shortcut;
    }
    void operator()(const LockScreen& /*action*/) const {
        draft.actionKind = ActionKind::lockScreen;
    }
    void operator()(const MissionControl& /*action*/) const {
        draft.actionKind = ActionKind::missionControl;
    }
    void operator()(const LaunchApp& action) const {
        draft.actionKind = ActionKind::launchApp;
        draft.launchTarget = appOf(action);
    }
};

GestureBinding* find(BindingList& list, const std::optional<Uuid>& wanted) {
    const auto found = std::ranges::find_if(
        list, [&](const GestureBinding& binding) { return binding.id == wanted; });
    return found != list.end() ? &*found : nullptr;
}

} // namespace

std::string label(ActionKind kind, const Lang& lang) {
    switch (kind) {
    case ActionKind::keyboardShortcut:
        return lang.choose("Keyboard Shortcut", "键盘快捷键");
    case ActionKind::lockScreen:
        return lang.choose("Lock Screen", "锁定屏幕");
    case ActionKind::missionControl:
        return "Mission Control"; // a product name, not translated
    case ActionKind::launchApp:
        break;
    }
    return lang.choose("Open App", "打开 App");
}

std::string_view rawValue(ScopeKind kind) {
    return kind == ScopeKind::global ? "global" : "app";
}

std::string label(ScopeKind kind, const Lang& lang) {
    return kind == ScopeKind::global ? lang.choose("Global", "全局")
                                     : lang.choose("Specific App", "指定 App");
}

void BindingDraft::load(const GestureBinding& binding) {
    gesture = binding.gesture;
    std::visit(LoadAction{*this}, binding.action);
    if (const auto* const app = std::get_if<AppScope>(&binding.scope)) {
        scopeKind = ScopeKind::app;
        scopeApp = appOf(*app);
    } else {
        scopeKind = ScopeKind::global;
    }
}

BindingDraft::Missing BindingDraft::missing() const {
    if (!action()) {
        return actionKind == ActionKind::keyboardShortcut ? Missing::shortcut
                                                          : Missing::launchTarget;
    }
    return scope() ? Missing::nothing : Missing::scopeApp;
}

std::optional<BindingAction> BindingDraft::action() const {
    switch (actionKind) {
    case ActionKind::keyboardShortcut:
        return shortcut ? std::optional<BindingAction>(*shortcut) : std::nullopt;
    case ActionKind::lockScreen:
        return LockScreen{};
    case ActionKind::missionControl:
        return MissionControl{};
    case ActionKind::launchApp:
        break;
    }
    if (!launchTarget) {
        return std::nullopt;
    }
    return LaunchApp{.bundleID = launchTarget->bundleID, .name = launchTarget->name};
}

std::optional<BindingScope> BindingDraft::scope() const {
    if (scopeKind == ScopeKind::global) {
        return GlobalScope{};
    }
    if (!scopeApp) {
        return std::nullopt;
    }
    return AppScope{.bundleID = scopeApp->bundleID, .name = scopeApp->name};
}

std::optional<BindingList> BindingDraft::writtenInto(BindingList list,
                                                     const std::optional<Uuid>& edited) const {
    std::optional<BindingAction> newAction = action();
    std::optional<BindingScope> newScope = scope();
    if (!newAction || !newScope) {
        return std::nullopt;
    }
    GestureBinding* target = find(list, edited);
    if (target == nullptr) {
        target = &list.emplace_back();
    }
    target->gesture = gesture;
    target->action = *std::move(newAction);
    target->scope = *std::move(newScope);
    return list;
}

} // namespace glidemap
