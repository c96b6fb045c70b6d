#include "ui/editor/binding_draft.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace glidemap {

namespace {

using testing::ElementsAre;

const KeyShortcut optionRight{.keyCode = 124, .modifiers = modifier::option};
const RunningApp editor{.bundleID = "org.example.Editor", .name = "Editor"};
const RunningApp browser{.bundleID = "org.example.Browser", .name = "Browser"};

GestureBinding made(GestureType gesture, BindingAction action, BindingScope scope = GlobalScope{},
                    bool enabled = true) {
    GestureBinding binding;
    binding.gesture = gesture;
    binding.action = std::move(action);
    binding.scope = std::move(scope);
    binding.enabled = enabled;
    return binding;
}

BindingDraft lockScreenOn(GestureType gesture) {
    BindingDraft draft;
    draft.gesture = gesture;
    draft.actionKind = ActionKind::lockScreen;
    return draft;
}

TEST(BindingDraftTest, NewDraftHasADefaultGestureAndNoShortcut) {
    const BindingDraft draft;
    EXPECT_EQ(draft.gesture, GestureType::drawCircle);
    EXPECT_EQ(draft.actionKind, ActionKind::keyboardShortcut);
    EXPECT_EQ(draft.shortcut, std::nullopt);
    EXPECT_EQ(draft.launchTarget, std::nullopt);
    EXPECT_EQ(draft.scopeKind, ScopeKind::global);
    EXPECT_EQ(draft.scopeApp, std::nullopt);
    EXPECT_FALSE(draft.isValid());
}

TEST(BindingDraftTest, NewDraftIsValidAfterAShortcutIsRecorded) {
    BindingDraft draft;
    draft.shortcut = optionRight;
    EXPECT_TRUE(draft.isValid());
}

// Tests every kind of action and scope, with and without each of the three parameters.
TEST(BindingDraftTest, IsValidOnlyIfTheSelectedKindsHaveTheirParameters) {
    for (const ActionKind actionKind : allActionKinds) {
        for (const ScopeKind scopeKind : allScopeKinds) {
            for (int set = 0; set < 8; ++set) {
                const bool hasShortcut = (set & 1) != 0;
                const bool hasTarget = (set & 2) != 0;
                const bool hasScopeApp = (set & 4) != 0;
                BindingDraft draft;
                draft.actionKind = actionKind;
                draft.scopeKind = scopeKind;
                draft.shortcut = hasShortcut ? std::optional(optionRight) : std::nullopt;
                draft.launchTarget = hasTarget ? std::optional(editor) : std::nullopt;
                draft.scopeApp = hasScopeApp ? std::optional(browser) : std::nullopt;

                bool expected = true;
                if (actionKind == ActionKind::keyboardShortcut && !hasShortcut) {
                    expected = false;
                }
                if (actionKind == ActionKind::launchApp && !hasTarget) {
                    expected = false;
                }
                if (scopeKind == ScopeKind::app && !hasScopeApp) {
                    expected = false;
                }
                EXPECT_EQ(draft.isValid(), expected)
                    << label(actionKind) << ", " << label(scopeKind) << ", parameters " << set;
                EXPECT_EQ(draft.writtenInto({}, std::nullopt).has_value(), expected)
                    << label(actionKind) << ", " << label(scopeKind) << ", parameters " << set;
            }
        }
    }
}

TEST(BindingDraftTest, LockScreenAndMissionControlAreValidWithoutParametersInGlobalScope) {
    for (const ActionKind kind : {ActionKind::lockScreen, ActionKind::missionControl}) {
        BindingDraft draft;
        draft.actionKind = kind;
        EXPECT_TRUE(draft.isValid()) << label(kind);
    }
}

TEST(BindingDraftTest, LoadedBindingIsWrittenUnchanged) {
    const BindingAction actions[] = {optionRight, LockScreen{}, MissionControl{},
                                     LaunchApp{.bundleID = "a", .name = "A"}};
    const BindingScope scopes[] = {GlobalScope{}, AppScope{.bundleID = "b", .name = "B"}};
    for (const BindingAction& action : actions) {
        for (const BindingScope& scope : scopes) {
            const GestureBinding binding = made(GestureType::pinchIn, action, scope);
            BindingDraft draft;
            draft.load(binding);
            EXPECT_TRUE(draft.isValid());
            EXPECT_EQ(draft.writtenInto({binding}, binding.id), BindingList{binding})
                << displayString(action) << ", " << displayString(scope);
        }
    }
}

TEST(BindingDraftTest, LoadKeepsTheParametersOfUnselectedKinds) {
    BindingDraft draft;
    draft.load(made(GestureType::pinchOut, LaunchApp{.bundleID = "a", .name = "A"}));
    EXPECT_EQ(draft.gesture, GestureType::pinchOut);
    EXPECT_EQ(draft.actionKind, ActionKind::launchApp);
    EXPECT_EQ(draft.launchTarget, (RunningApp{.bundleID = "a", .name = "A"}));
    EXPECT_EQ(draft.shortcut, std::nullopt);
    EXPECT_EQ(draft.scopeKind, ScopeKind::global);
    EXPECT_EQ(draft.scopeApp, std::nullopt);

    draft.load(made(GestureType::pinchIn, optionRight, AppScope{.bundleID = "b", .name = "B"}));
    EXPECT_EQ(draft.actionKind, ActionKind::keyboardShortcut);
    EXPECT_EQ(draft.shortcut, optionRight);
    EXPECT_EQ(draft.launchTarget, (RunningApp{.bundleID = "a", .name = "A"})) << "kept";
    EXPECT_EQ(draft.scopeKind, ScopeKind::app);
    EXPECT_EQ(draft.scopeApp, (RunningApp{.bundleID = "b", .name = "B"}));

    draft.load(made(GestureType::pinchIn, LockScreen{}, GlobalScope{}));
    EXPECT_EQ(draft.actionKind, ActionKind::lockScreen);
    EXPECT_EQ(draft.scopeKind, ScopeKind::global);
    EXPECT_EQ(draft.scopeApp, (RunningApp{.bundleID = "b", .name = "B"})) << "kept";
    draft.load(made(GestureType::pinchIn, MissionControl{}));
    EXPECT_EQ(draft.actionKind, ActionKind::missionControl);
}

TEST(BindingDraftTest, OnlyTheFieldsOfTheSelectedKindsAreSaved) {
    BindingDraft draft;
    draft.shortcut = optionRight;
    draft.launchTarget = editor;
    draft.scopeApp = browser;
    struct Row {
        ActionKind kind;
        BindingAction action;
    };
    const Row rows[] = {
        {ActionKind::keyboardShortcut, optionRight},
        {ActionKind::lockScreen, LockScreen{}},
        {ActionKind::missionControl, MissionControl{}},
        {ActionKind::launchApp, LaunchApp{.bundleID = "org.example.Editor", .name = "Editor"}},
    };
    for (const Row& row : rows) {
        draft.actionKind = row.kind;
        EXPECT_EQ(draft.action(), row.action) << label(row.kind);
    }
    draft.scopeKind = ScopeKind::global;
    EXPECT_EQ(draft.scope(), BindingScope(GlobalScope{}));
    draft.scopeKind = ScopeKind::app;
    EXPECT_EQ(draft.scope(),
              BindingScope(AppScope{.bundleID = "org.example.Browser", .name = "Browser"}));
}

TEST(BindingDraftTest, NewBindingIsAppendedEnabledWithANewIdentifier) {
    const GestureBinding first = made(GestureType::drawCircle, MissionControl{});
    const auto list = lockScreenOn(GestureType::twoFingerTap).writtenInto({first}, std::nullopt);
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 2U);
    EXPECT_EQ(list->front(), first);
    const GestureBinding& added = list->back();
    EXPECT_EQ(added.gesture, GestureType::twoFingerTap);
    EXPECT_EQ(added.action, BindingAction(LockScreen{}));
    EXPECT_EQ(added.scope, BindingScope(GlobalScope{}));
    EXPECT_TRUE(added.enabled);
    EXPECT_NE(added.id, first.id);
}

TEST(BindingDraftTest, BindingsWithTheSameGestureAndScopeMayCoexist) {
    const GestureBinding first = made(GestureType::twoFingerTap, LockScreen{});
    const auto list = lockScreenOn(GestureType::twoFingerTap).writtenInto({first}, std::nullopt);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->size(), 2U);
}

TEST(BindingDraftTest, EditedBindingKeepsItsPositionIdentifierAndEnabledState) {
    for (const bool enabled : {true, false}) {
        const GestureBinding before = made(GestureType::pinchIn, MissionControl{});
        GestureBinding edited = made(GestureType::drawCircle, optionRight,
                                     AppScope{.bundleID = "b", .name = "B"}, enabled);
        const GestureBinding after = made(GestureType::pinchOut, MissionControl{});
        const auto list =
            lockScreenOn(GestureType::twoFingerTap).writtenInto({before, edited, after}, edited.id);
        edited.gesture = GestureType::twoFingerTap;
        edited.action = LockScreen{};
        edited.scope = GlobalScope{};
        EXPECT_EQ(list, (BindingList{before, edited, after})) << enabled;
    }
}

TEST(BindingDraftTest, OnlyTheFirstOfTwoBindingsWithTheSameIdentifierIsReplaced) {
    const GestureBinding first = made(GestureType::pinchIn, MissionControl{});
    GestureBinding second = first;
    second.gesture = GestureType::pinchOut;
    const auto list = lockScreenOn(GestureType::drawCircle).writtenInto({first, second}, first.id);
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 2U);
    EXPECT_EQ(list->front().gesture, GestureType::drawCircle);
    EXPECT_EQ(list->back(), second);
}

TEST(BindingDraftTest, BindingDeletedDuringEditingIsAppendedAndEnabled) {
    const GestureBinding other = made(GestureType::pinchIn, MissionControl{});
    const GestureBinding deleted =
        made(GestureType::drawCircle, LockScreen{}, GlobalScope{}, false);
    BindingDraft draft;
    draft.load(deleted);
    const auto list = draft.writtenInto({other}, deleted.id);
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 2U);
    EXPECT_EQ(list->front(), other);
    EXPECT_NE(list->back().id, deleted.id);
    EXPECT_TRUE(list->back().enabled);
    EXPECT_EQ(list->back().gesture, GestureType::drawCircle);
    EXPECT_EQ(list->back().action, BindingAction(LockScreen{}));
}

TEST(BindingDraftTest, KindsAreLabelledInBothLanguages) {
    Lang english(nullptr);
    Lang chinese(nullptr);
    chinese.setCode("zh");
    const auto labelsOf = [](const auto& kinds, const Lang& lang) {
        std::vector<std::string> labels;
        for (const auto kind : kinds) {
            labels.push_back(label(kind, lang));
        }
        return labels;
    };
    EXPECT_THAT(labelsOf(allActionKinds, english),
                ElementsAre("Keyboard Shortcut", "Lock Screen", "Mission Control", "Open App"));
    EXPECT_THAT(labelsOf(allActionKinds, chinese),
                ElementsAre("键盘快捷键", "锁定屏幕", "Mission Control", "打开 App"));
    EXPECT_THAT(labelsOf(allScopeKinds, english), ElementsAre("Global", "Specific App"));
    EXPECT_THAT(labelsOf(allScopeKinds, chinese), ElementsAre("全局", "指定 App"));
    EXPECT_EQ(rawValue(ScopeKind::global), "global");
    EXPECT_EQ(rawValue(ScopeKind::app), "app");
}

TEST(RunningAppTest, EqualityComparesIdentifierAndName) {
    EXPECT_EQ(editor, (RunningApp{.bundleID = "org.example.Editor", .name = "Editor"}));
    EXPECT_NE(editor, (RunningApp{.bundleID = "org.example.Editor", .name = "编辑器"}));
    EXPECT_NE(editor, (RunningApp{.bundleID = "org.example.Other", .name = "Editor"}));
}

} // namespace

} // namespace glidemap
