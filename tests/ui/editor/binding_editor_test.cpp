#include "editor_stage.h"
#include "kit/larger_letters.h"
#include "kit/qt_waiting.h"
#include "ui/controls/form_section.h"
#include "ui/controls/sheet.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <cstdlib>
#include <vector>

namespace glidemap {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BindingEditorTest : public EditorStage {
protected:
    // A layout pass may request another pass.
    static void settleLayout() {
        constexpr int turns = 6;
        for (int turn = 0; turn < turns; ++turn) {
            QApplication::sendPostedEvents();
            QApplication::processEvents();
        }
    }

    std::vector<std::string> visibleParts() const {
        std::vector<std::string> names;
        for (const char* const name :
             {"clickWarning", "shortcutRecorder", "launchPicker", "scopeAppPicker"}) {
            if (shows(name)) {
                names.emplace_back(name);
            }
        }
        return names;
    }
};

TEST_F(BindingEditorTest, NewBindingCannotBeSavedUntilAShortcutIsRecorded) {
    open();
    EXPECT_EQ(picker("gesturePicker").currentText(), "Draw Circle (any direction)");
    EXPECT_EQ(picker("actionPicker").currentText(), "Keyboard Shortcut");
    EXPECT_FALSE(editor->isValid());
    EXPECT_FALSE(saveButton().isEnabled());
    record();
    EXPECT_TRUE(editor->isValid());
    EXPECT_TRUE(saveButton().isEnabled());
    QTest::mouseClick(&saveButton(), Qt::LeftButton);
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_EQ(bindings()[0].gesture, GestureType::drawCircle);
    EXPECT_EQ(bindings()[0].action, BindingAction(optionCommandRight));
    EXPECT_EQ(bindings()[0].scope, BindingScope(GlobalScope{}));
    EXPECT_TRUE(bindings()[0].enabled);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(BindingEditorTest, LockScreenAndMissionControlCanBeSavedWithoutFurtherInput) {
    open();
    for (const ActionKind kind : {ActionKind::lockScreen, ActionKind::missionControl}) {
        choose(kind);
        EXPECT_TRUE(saveButton().isEnabled()) << label(kind);
        choose(ActionKind::keyboardShortcut);
        EXPECT_FALSE(saveButton().isEnabled());
    }
}

TEST_F(BindingEditorTest, MissionControlWithoutAWindowOverviewShowsANoteButCanBeSaved) {
    workspace.hasOverview = false;
    open();
    EXPECT_FALSE(shows("noOverview"));
    choose(ActionKind::missionControl);
    EXPECT_TRUE(shows("noOverview"));
    EXPECT_EQ(part<QLabel>("noOverview").text(), "This desktop has no window overview.");
    EXPECT_TRUE(saveButton().isEnabled());
    workspace.hasOverview = true;
    choose(ActionKind::lockScreen);
    choose(ActionKind::missionControl);
    EXPECT_FALSE(shows("noOverview"));
}

TEST_F(BindingEditorTest, LaunchActionRequiresAnApp) {
    open();
    choose(ActionKind::launchApp);
    EXPECT_FALSE(saveButton().isEnabled());
    picker("launchPicker").setCurrentIndex(1);
    EXPECT_TRUE(saveButton().isEnabled());
    picker("launchPicker").setCurrentIndex(0);
    EXPECT_FALSE(saveButton().isEnabled());
    picker("launchPicker").setCurrentIndex(2);
    editor->save();
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_EQ(bindings()[0].action, BindingAction(LaunchApp{.bundleID = "mail", .name = "Mail"}));
}

TEST_F(BindingEditorTest, AppScopeRequiresAnApp) {
    open();
    choose(ActionKind::lockScreen);
    choose(ScopeKind::app);
    EXPECT_FALSE(saveButton().isEnabled());
    picker("scopeAppPicker").setCurrentIndex(1);
    EXPECT_TRUE(saveButton().isEnabled());
    editor->save();
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_EQ(bindings()[0].scope, BindingScope(AppScope{.bundleID = "files", .name = "Files"}));
}

TEST_F(BindingEditorTest, SavingAnIncompleteFormDoesNothing) {
    open();
    editor->save();
    choose(ActionKind::launchApp);
    editor->save();
    choose(ActionKind::lockScreen);
    choose(ScopeKind::app);
    editor->save();
    EXPECT_THAT(bindings(), IsEmpty());
    EXPECT_EQ(dismissals, 0);
}

TEST_F(BindingEditorTest, ShowsOnlyTheFieldsOfTheSelectedKinds) {
    open();
    EXPECT_THAT(visibleParts(), ElementsAre("shortcutRecorder"));
    choose(ActionKind::lockScreen);
    EXPECT_THAT(visibleParts(), IsEmpty());
    choose(ActionKind::missionControl);
    EXPECT_THAT(visibleParts(), IsEmpty());
    choose(ActionKind::launchApp);
    EXPECT_THAT(visibleParts(), ElementsAre("launchPicker"));
    choose(ScopeKind::app);
    EXPECT_THAT(visibleParts(), ElementsAre("launchPicker", "scopeAppPicker"));
    choose(ScopeKind::global);
    EXPECT_THAT(visibleParts(), ElementsAre("launchPicker"));
}

TEST_F(BindingEditorTest, ShowsTheClickWarningOnlyForTheTwoFingerClick) {
    open();
    choose(ActionKind::lockScreen);
    for (const GestureType gesture : allGestureTypes) {
        choose(gesture);
        EXPECT_EQ(shows("clickWarning"), gesture == GestureType::twoFingerClick)
            << rawValue(gesture);
        EXPECT_EQ(part<QLabel>("gestureDetail").text().toStdString(), detail(gesture));
        EXPECT_EQ(part("gestureDemo").accessibleName().toStdString(), displayName(gesture));
    }
}

TEST_F(BindingEditorTest, TitleIsProminentAndCaptionsAreNot) {
    open();
    choose(GestureType::twoFingerClick);
    const Theme& theme = Theme::shared();
    const struct {
        const char* name;
        TextStyle style;
        Role role;
    } rows[] = {{"editorTitle", TextStyle::headline, Role::primary},
                {"gestureDetail", TextStyle::caption, Role::secondary},
                {"clickWarning", TextStyle::caption, Role::orange}};
    for (const auto& row : rows) {
        EXPECT_EQ(part(row.name).font(), theme.font(row.style)) << row.name;
        EXPECT_EQ(part(row.name).palette().color(QPalette::WindowText), theme.color(row.role))
            << row.name;
    }
}

TEST_F(BindingEditorTest, ShowsAnExistingBinding) {
    const LaunchApp launch{.bundleID = "mail", .name = "Mail"};
    const AppScope scope{.bundleID = "files", .name = "Files"};
    open(stored(GestureType::pinchIn, launch, scope));
    EXPECT_EQ(part<QLabel>("editorTitle").text(), "Edit Binding");
    EXPECT_EQ(picker("gesturePicker").currentText(), "Pinch In");
    EXPECT_EQ(picker("actionPicker").currentText(), "Open App");
    EXPECT_EQ(picker("launchPicker").currentText(), "Mail");
    EXPECT_EQ(picker("scopeAppPicker").currentText(), "Files");
    EXPECT_THAT(visibleParts(), ElementsAre("launchPicker", "scopeAppPicker"));
    EXPECT_TRUE(saveButton().isEnabled());
}

TEST_F(BindingEditorTest, ShowsAnExistingShortcut) {
    open(stored(GestureType::drawCircle, optionCommandRight));
    EXPECT_EQ(part<QPushButton>("recordShortcut").text(), "⌥⌘→");
    EXPECT_TRUE(saveButton().isEnabled());
}

TEST_F(BindingEditorTest, EditingReplacesTheBindingInPlace) {
    const GestureBinding first = stored(GestureType::pinchIn, LockScreen{});
    GestureBinding edited = stored(GestureType::pinchOut, LockScreen{});
    const GestureBinding last = stored(GestureType::drawCircle, LockScreen{});
    open(edited);
    choose(GestureType::twoFingerTap);
    choose(ActionKind::missionControl);
    editor->save();
    edited.gesture = GestureType::twoFingerTap;
    edited.action = MissionControl{};
    EXPECT_THAT(bindings(), ElementsAre(first, edited, last));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(BindingEditorTest, EditingKeepsADisabledBindingDisabled) {
    open(stored(GestureType::pinchOut, LockScreen{}, GlobalScope{}, false));
    choose(GestureType::twoFingerTap);
    editor->save();
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_EQ(bindings()[0].gesture, GestureType::twoFingerTap);
    EXPECT_FALSE(bindings()[0].enabled);
}

TEST_F(BindingEditorTest, BindingToggledDuringEditingKeepsItsNewState) {
    GestureBinding edited = stored(GestureType::pinchOut, LockScreen{});
    open(edited);
    edited.enabled = false;
    store.setBindings({edited});
    editor->save();
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_FALSE(bindings()[0].enabled);
}

TEST_F(BindingEditorTest, SavingABindingDeletedDuringEditingAppendsAndEnablesIt) {
    const GestureBinding deleted =
        stored(GestureType::pinchOut, LockScreen{}, GlobalScope{}, false);
    open(deleted);
    store.setBindings({});
    editor->save();
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_NE(bindings()[0].id, deleted.id);
    EXPECT_TRUE(bindings()[0].enabled);
    EXPECT_EQ(bindings()[0].gesture, GestureType::pinchOut);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(BindingEditorTest, ApplicationThatIsNotRunningIsSavedUnchanged) {
    const LaunchApp launch{.bundleID = "gone", .name = "Gone"};
    const AppScope scope{.bundleID = "also.gone", .name = "Also Gone"};
    const GestureBinding binding = stored(GestureType::pinchIn, launch, scope);
    open(binding);
    EXPECT_EQ(picker("launchPicker").currentText(), "Gone");
    EXPECT_EQ(picker("scopeAppPicker").currentText(), "Also Gone");
    EXPECT_TRUE(saveButton().isEnabled());
    editor->save();
    EXPECT_THAT(bindings(), ElementsAre(binding));
}

TEST_F(BindingEditorTest, FieldsKeepTheirValuesWhileOtherKindsAreSelected) {
    open();
    record();
    choose(ActionKind::launchApp);
    picker("launchPicker").setCurrentIndex(2);
    choose(ScopeKind::app);
    picker("scopeAppPicker").setCurrentIndex(1);
    choose(ActionKind::lockScreen);
    choose(ScopeKind::global);
    choose(ActionKind::launchApp);
    EXPECT_EQ(picker("launchPicker").currentText(), "Mail");
    choose(ScopeKind::app);
    EXPECT_EQ(picker("scopeAppPicker").currentText(), "Files");
    choose(ActionKind::keyboardShortcut);
    EXPECT_EQ(part<QPushButton>("recordShortcut").text(), "⌥⌘→");
    editor->save();
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_EQ(bindings()[0].action, BindingAction(optionCommandRight));
}

TEST_F(BindingEditorTest, CancelLeavesTheStoreUnchanged) {
    const GestureBinding binding = stored(GestureType::pinchIn, LockScreen{});
    open(binding);
    choose(ActionKind::missionControl);
    QTest::mouseClick(&part("cancel"), Qt::LeftButton);
    EXPECT_EQ(dismissals, 1);
    EXPECT_THAT(bindings(), ElementsAre(binding));
}

TEST_F(BindingEditorTest, RecordingStopsWhenAnotherActionKindIsSelected) {
    open();
    QTest::mouseClick(&part("recordShortcut"), Qt::LeftButton);
    choose(ActionKind::lockScreen);
    typist.type(right);
    choose(ActionKind::keyboardShortcut);
    EXPECT_EQ(part<QPushButton>("recordShortcut").text(), "Click to record");
}

TEST_F(BindingEditorTest, DestroyedEditorLeavesNoKeyMonitor) {
    open();
    QTest::mouseClick(&part("recordShortcut"), Qt::LeftButton);
    delete editor;
    typist.type(right);
    EXPECT_THAT(window.keys, ElementsAre(Qt::Key_Right));
}

TEST_F(BindingEditorTest, AllTextsFollowTheLanguageImmediately) {
    open();
    choose(GestureType::twoFingerClick);
    choose(ActionKind::launchApp);
    choose(ScopeKind::app);
    const auto texts = [this] {
        std::vector<std::string> all;
        for (const QLabel* const label : window.findChildren<QLabel*>()) {
            if (label->isVisible()) {
                all.push_back(label->text().toStdString());
            }
        }
        for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
            if (button->isVisible()) {
                all.push_back(button->text().toStdString());
            }
        }
        for (const QComboBox* const shown : window.findChildren<QComboBox*>()) {
            if (shown->isVisible()) {
                all.push_back(shown->currentText().toStdString());
            }
        }
        return all;
    };
    const std::vector<std::string> english = {
        "Add Binding",
        "Gesture",
        "Trackpad gesture",
        "Physical click with two fingers (intercepts the system right-click menu)",
        "Once enabled, this intercepts the system two-finger right-click (context menu).",
        "Action",
        "Perform action",
        "Choose an app",
        "Scope",
        "Scope",
        "Only in this app",
        "Global",
        "Specific App",
        "Cancel",
        "Add",
        "Two-Finger Click",
        "Open App",
        "Choose an app",
        "Choose an app"};
    const std::vector<std::string> chinese = {"添加绑定",
                                              "手势",
                                              "触控板手势",
                                              "两根手指物理按压点击（会拦截系统右键菜单）",
                                              "启用后将拦截系统的两指右键点击（右键菜单）。",
                                              "动作",
                                              "执行动作",
                                              "选择 App",
                                              "生效范围",
                                              "范围",
                                              "仅在此 App 生效",
                                              "全局",
                                              "指定 App",
                                              "取消",
                                              "添加",
                                              "两指按压点击",
                                              "打开 App",
                                              "选择 App",
                                              "选择 App"};
    EXPECT_THAT(texts(), testing::UnorderedElementsAreArray(english));
    Lang::shared().setCode("zh");
    EXPECT_THAT(texts(), testing::UnorderedElementsAreArray(chinese));
    Lang::shared().setCode("en");
    EXPECT_THAT(texts(), testing::UnorderedElementsAreArray(english));
}

TEST_F(BindingEditorTest, PickerLabelsAreAlignedInEachLanguageAndFont) {
    open();
    const auto expectAligned = [this](const char* when) {
        int widest = 0;
        std::vector<int> widths;
        for (const char* picker :
             {"gesturePicker", "actionPicker", "launchPicker", "scopeAppPicker"}) {
            for (const auto* label : window.findChildren<QLabel*>()) {
                if (label->buddy() == &part(picker)) {
                    widths.push_back(label->minimumWidth());
                    widest =
                        std::max(widest, label->fontMetrics().horizontalAdvance(label->text()));
                }
            }
        }
        ASSERT_EQ(widths, std::vector<int>(4, widths.front())) << when;
        EXPECT_THAT(widths.front(), testing::AllOf(testing::Ge(widest), testing::Le(widest + 1)))
            << when; // the width may be rounded up
    };
    expectAligned("in English");
    Lang::shared().setCode("zh");
    expectAligned("in Chinese");
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPixelSize(2 * QFontInfo(usual).pixelSize());
    QApplication::setFont(large);
    expectAligned("in a large font");
    QApplication::setFont(usual);
    expectAligned("in the usual font again");
}

TEST_F(BindingEditorTest, ExistingBindingCanBeEditedInBothLanguages) {
    open(stored(GestureType::pinchIn, LockScreen{}));
    EXPECT_EQ(saveButton().text(), "Save");
    Lang::shared().setCode("zh");
    EXPECT_EQ(part<QLabel>("editorTitle").text(), "编辑绑定");
    EXPECT_EQ(saveButton().text(), "保存");
    EXPECT_EQ(saveButton().accessibleName(), "保存");
    EXPECT_EQ(picker("actionPicker").currentText(), "锁定屏幕");
    EXPECT_EQ(picker("actionPicker").itemText(2), "Mission Control");
}

TEST_F(BindingEditorTest, LanguageChangeKeepsTheSelections) {
    open();
    choose(GestureType::pinchIn);
    choose(ActionKind::launchApp);
    picker("launchPicker").setCurrentIndex(2);
    Lang::shared().setCode("zh");
    EXPECT_EQ(picker("launchPicker").currentText(), "Mail");
    EXPECT_TRUE(saveButton().isEnabled());
    editor->save();
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_EQ(bindings()[0].gesture, GestureType::pinchIn);
    EXPECT_EQ(bindings()[0].action, BindingAction(LaunchApp{.bundleID = "mail", .name = "Mail"}));
}

TEST_F(BindingEditorTest, HasTheDefaultSheetSize) {
    open();
    EXPECT_EQ(editor->sizeHint(), QSize(460, 640));
    const QRect demo = part("gestureDemo").geometry();
    EXPECT_EQ(demo.height(), 130);
    EXPECT_EQ(demo.y(), 4);
    EXPECT_EQ(part("gestureDemo").parentWidget()->height(), 4 + 130 + 4);
}

// Tests the forms with the most content, in both languages.
TEST_F(BindingEditorTest, FitsItsSheetWithoutScrolling) {
    open();
    choose(ScopeKind::app);
    const QScrollBar& bar = *window.findChild<QScrollArea*>()->verticalScrollBar();
    for (const char* const code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        for (const GestureType gesture :
             {GestureType::twoFingerClick, GestureType::twoFingerDoubleTap,
              GestureType::threeFingerSwipeUp}) {
            choose(gesture);
            for (const ActionKind kind : allActionKinds) {
                choose(kind);
                EXPECT_TRUE(test::waitFor([&] { return bar.maximum() == 0; }))
                    << bar.maximum() << ": " << code << ", " << rawValue(gesture) << ", "
                    << label(kind);
            }
        }
    }
}

// The sheet widens for large fonts, up to the width of the screen. The offscreen platform's screen
// is wide enough: 800 points.
TEST_F(BindingEditorTest, FormFitsTheWidthOfTheSheetEvenWithLargeFonts) {
    window.show();
    auto* const content = new BindingEditor({store, workspace, keys}, std::nullopt);
    auto* const sheet = new Sheet(&window, content, BindingEditor::sheetSize);
    sheet->present();
    ASSERT_TRUE(test::waitForWindowActive(sheet));
    const QScrollArea& scroll = *content->findChild<QScrollArea*>();
    auto& actions = test::find<QComboBox>(*content, "actionPicker");
    for (const double factor : {1.0, 1.5}) {
        const test::LargerLetters letters(factor);
        for (const char* const code : {"en", "zh"}) {
            Lang::shared().setCode(code);
            for (const ActionKind kind : allActionKinds) {
                actions.setCurrentIndex(static_cast<int>(kind));
                SCOPED_TRACE(std::to_string(factor) + ", " + code + ", " + label(kind));
                settleLayout();
                EXPECT_EQ(sheet->cardGeometry().width() > 460, factor > 1);
                EXPECT_LE(scroll.widget()->minimumSizeHint().width(), scroll.viewport()->width());
                EXPECT_EQ(scroll.widget()->width(), scroll.viewport()->width());
            }
        }
    }
    sheet->dismiss();
}

TEST_F(BindingEditorTest, DisabledSaveButtonNamesTheMissingField) {
    open();
    const auto missing = [&] {
        EXPECT_EQ(saveButton().toolTip(), saveButton().accessibleDescription());
        EXPECT_EQ(saveButton().isEnabled(), saveButton().toolTip().isEmpty());
        return saveButton().toolTip();
    };
    EXPECT_EQ(missing(), "Record a shortcut first");
    choose(ActionKind::launchApp);
    EXPECT_EQ(missing(), "Choose the app to open first");
    picker("launchPicker").setCurrentIndex(1);
    EXPECT_EQ(missing(), "");
    choose(ScopeKind::app);
    EXPECT_EQ(missing(), "Choose the app for this binding first");
    Lang::shared().setCode("zh");
    EXPECT_EQ(missing(), "请先选择此绑定适用的 App");
}

TEST_F(BindingEditorTest, EmptyAppPickerUsesThePlaceholderColor) {
    open();
    choose(ActionKind::launchApp);
    const auto textColors = [&](QComboBox& of) {
        const QImage picture = of.grab().toImage();
        int primary = 0;
        for (int x = 0; x < picture.width() - 40; ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                primary += picture.pixelColor(x, y) == Theme::shared().color(Role::primary) ? 1 : 0;
            }
        }
        return primary;
    };
    EXPECT_EQ(textColors(picker("launchPicker")), 0);
    picker("launchPicker").setCurrentIndex(1);
    EXPECT_GT(textColors(picker("launchPicker")), 0);
}

// The extra height is divided equally among the gaps between the sections and the gap below the
// last one.
TEST_F(BindingEditorTest, DistributesExtraHeightBetweenSections) {
    open();
    choose(ActionKind::lockScreen);
    const auto places = [&] {
        std::vector<QRect> found;
        for (const char* const inside : {"gesturePicker", "actionPicker", "scopePicker"}) {
            QWidget* section = &part(inside);
            while (dynamic_cast<FormSection*>(section) == nullptr) {
                section = section->parentWidget();
            }
            found.push_back(section->geometry());
        }
        return found;
    };
    const auto spread = [&] {
        const auto sections = places();
        const int first = sections[1].top() - sections[0].bottom();
        const int second = sections[2].top() - sections[1].bottom();
        return std::abs(first - second) <= 1 && first > 14;
    };
    EXPECT_TRUE(test::waitFor(spread));
}

} // namespace

} // namespace glidemap
