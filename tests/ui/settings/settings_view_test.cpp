#include "kit/find_widget.h"
#include "kit/qt_waiting.h"
#include "kit/temporary_folder.h"
#include "ui/controls/sheet.h"
#include "ui/editor/binding_editor.h"
#include "ui/settings/settings_stage.h"
#include "ui/settings/settings_view.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QPointer>
#include <QTest>

namespace glidemap {
namespace {

class SettingsViewTest : public testing::Test {
protected:
    SettingsView& open() { return stage.open().view(); }
    BindingEditor* editor() const {
        const std::vector<BindingEditor*> found = test::findAll<BindingEditor>(stage.window());
        return found.empty() ? nullptr : found.front();
    }
    BindingList stored() const { return *stage.store->bindings(); }
    void closeEditor() {
        ASSERT_NE(editor(), nullptr);
        editor()->dismiss();
        EXPECT_TRUE(test::waitFor([&] { return test::findAll<Sheet>(stage.window()).empty(); }));
    }

    std::vector<std::string> textsThatAreCut() const {
        std::vector<std::string> cut;
        for (const auto* label : stage.window().findChildren<QLabel*>()) {
            if (label->isVisible() && !test::fits(*label)) {
                cut.push_back(label->text().toStdString());
            }
        }
        for (const auto* button : stage.window().findChildren<QAbstractButton*>()) {
            const QSize needed = button->sizeHint();
            const bool hasText = button->isVisible() && !button->text().isEmpty();
            if (hasText &&
                (button->width() < needed.width() || button->height() < needed.height())) {
                cut.push_back(button->text().toStdString());
            }
        }
        const auto* language = stage.find<QComboBox>("language");
        if (language->width() < language->sizeHint().width()) {
            cut.push_back(language->currentText().toStdString());
        }
        return cut;
    }

    mutable test::SettingsStage stage{defaultBindings()};
};

TEST_F(SettingsViewTest, StartsWithTheEditorClosed) {
    const SettingsView& view = open();
    EXPECT_FALSE(view.showsEditor());
    EXPECT_EQ(view.editedBinding(), std::nullopt);
}

TEST_F(SettingsViewTest, AddBindingOpensTheEditorForANewBinding) {
    const SettingsView& view = open();
    stage.click("addBinding");
    EXPECT_TRUE(view.showsEditor());
    EXPECT_EQ(view.editedBinding(), std::nullopt);
    ASSERT_NE(editor(), nullptr);
    EXPECT_TRUE(editor()->isVisible());
    closeEditor();
    EXPECT_FALSE(view.showsEditor());
}

TEST_F(SettingsViewTest, CommandNOpensTheEditorInBothLanguages) {
    const SettingsView& view = open();
    for (const char* code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        QTest::keyClick(&stage.window(), Qt::Key_N, Qt::ControlModifier);
        EXPECT_TRUE(test::waitFor([&] { return view.showsEditor(); }));
        closeEditor();
        stage.window().activateWindow();
        EXPECT_TRUE(test::waitForWindowActive(&stage.window()));
    }
}

TEST_F(SettingsViewTest, EditorShowsTheNoteAboutTheSystemsUseOfAGesture) {
    stage.notes = std::make_shared<test::FakeNotes>();
    stage.notes->swipe = "This desktop swipes, too.";
    stage.notes->swipeInChinese = "此桌面也滑动。";
    stage.open();
    stage.click("addBinding");
    EXPECT_FALSE(stage.isShown("systemGesture"));
    auto* gestures = stage.find<QComboBox>("gesturePicker");
    gestures->setCurrentIndex(static_cast<int>(GestureType::threeFingerSwipeLeft));
    EXPECT_TRUE(stage.isShown("systemGesture"));
    EXPECT_EQ(stage.text("systemGesture"), "This desktop swipes, too.");
    EXPECT_EQ(stage.find("systemGesture")->palette().color(QPalette::WindowText),
              Theme::shared().color(Role::secondary));
    Lang::shared().setCode("zh");
    EXPECT_EQ(stage.text("systemGesture"), "此桌面也滑动。");
    gestures->setCurrentIndex(static_cast<int>(GestureType::threeFingerTap));
    EXPECT_FALSE(stage.isShown("systemGesture"));
}

TEST_F(SettingsViewTest, EditorShowsNoNoteAboutTheSystemsUseOfAGestureWithoutSystemNotes) {
    stage.open();
    stage.click("addBinding");
    stage.find<QComboBox>("gesturePicker")
        ->setCurrentIndex(static_cast<int>(GestureType::threeFingerSwipeLeft));
    EXPECT_FALSE(stage.isShown("systemGesture"));
}

TEST_F(SettingsViewTest, AddBindingDoesNothingWhileTheEditorIsOpen) {
    SettingsView& view = open();
    stage.clickInRow(1, "edit");
    view.addBinding();
    EXPECT_EQ(view.editedBinding(), stored()[1]);
    EXPECT_EQ(test::findAll<Sheet>(stage.window()).size(), 1U);
}

TEST_F(SettingsViewTest, EditButtonOpensTheEditorForTheBindingOfTheRow) {
    const SettingsView& view = open();
    stage.clickInRow(1, "edit");
    EXPECT_TRUE(view.showsEditor());
    EXPECT_EQ(view.editedBinding(), stored()[1]);
    closeEditor();
    stage.click("addBinding"); // resets the edited binding
    EXPECT_EQ(view.editedBinding(), std::nullopt);
}

TEST_F(SettingsViewTest, TogglingABindingIsStored) {
    open();
    const BindingList before = stored();
    stage.clickInRow(1, "enabled");
    BindingList expected = before;
    expected[1].enabled = false;
    EXPECT_EQ(stored(), expected);
    stage.clickInRow(1, "enabled");
    EXPECT_EQ(stored(), before);
}

TEST_F(SettingsViewTest, DeletionIsStoredAtOnce) {
    open();
    const BindingList before = stored();
    stage.clickInRow(1, "delete");
    EXPECT_EQ(stored(), (BindingList{before[0], before[2]}));
}

TEST_F(SettingsViewTest, ChangesSurviveARelaunch) {
    const test::TemporaryFolder folder;
    const auto support = [&] {
        return folder.path();
    };
    test::SettingsStage kept(std::make_shared<BindingStore>(support));
    kept.open();
    kept.clickInRow(0, "enabled");
    kept.clickInRow(2, "delete");
    const BindingStore next(support);
    EXPECT_EQ(*next.bindings(), *kept.store->bindings());
    EXPECT_EQ(next.bindings()->size(), 2);
    EXPECT_FALSE(next.bindings()->front().enabled);
}

TEST_F(SettingsViewTest, BindingDeletedDuringEditingIsAppendedOnSave) {
    const SettingsView& view = open();
    stage.clickInRow(1, "edit");
    const GestureBinding edited = view.editedBinding().value();
    BindingList left = stored();
    left.erase(left.begin() + 1);
    stage.store->setBindings(left);
    ASSERT_TRUE(view.showsEditor());
    editor()->save();
    const BindingList after = stored();
    ASSERT_EQ(after.size(), 3);
    EXPECT_EQ(after[2].gesture, edited.gesture);
    EXPECT_EQ(after[2].action, edited.action);
    EXPECT_EQ(after[2].scope, edited.scope);
    EXPECT_TRUE(after[2].enabled);
    EXPECT_FALSE(view.showsEditor());
}

// The program may quit while the user edits a binding.
TEST_F(SettingsViewTest, DestroyedWindowClosesItsEditorAndOpenList) {
    open();
    stage.clickInRow(0, "edit");
    const QPointer<QWidget> left = editor();
    ASSERT_NE(left, nullptr);
    left->findChild<QComboBox*>("gesturePicker")->showPopup();
    ASSERT_NE(left->window()->findChild<QWidget*>("gestureList"), nullptr);
    stage.close();
    EXPECT_EQ(left, nullptr);
}

TEST_F(SettingsViewTest, LanguageChangeUpdatesRowsAndAnOpenEditorAtOnce) {
    open();
    stage.clickInRow(0, "edit");
    const auto* title = editor()->findChild<QLabel*>("editorTitle");
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->text(), "Edit Binding");
    Lang::shared().setCode("zh");
    EXPECT_EQ(title->text(), "编辑绑定");
    EXPECT_EQ(stage.text("title"), "触控板手势绑定");
    EXPECT_EQ(stage.rowText(0, "gestureName"), "单指画圆（任意方向）");
    EXPECT_EQ(stage.rowText(0, "actionText"), "锁定屏幕");
    EXPECT_EQ(stage.rowText(0, "scopeBadge"), "全局");
    EXPECT_EQ(stage.text("footerGesture"), "在触控板上试试画一个圆…");
}

TEST_F(SettingsViewTest, HiddenWindowShowsChangesWhenItOpens) {
    open();
    stage.window().close();
    Lang::shared().setCode("zh");
    stage.store->setBindings({test::bound(GestureType::pinchIn)});
    stage.recognise(GestureType::pinchIn);
    stage.window().show();
    EXPECT_EQ(stage.text("title"), "触控板手势绑定");
    EXPECT_EQ(stage.rowCount(), 1);
    EXPECT_EQ(stage.rowText(0, "gestureName"), "两指捏合（收拢）");
    EXPECT_EQ(stage.text("footerGesture"), "最近手势：两指捏合（收拢）");
}

TEST_F(SettingsViewTest, ShowsNoHelperNoticeWithoutADesktopHelper) {
    stage.helper.reset();
    open();
    EXPECT_FALSE(stage.isShown("desktopHelperNotice"));
}

TEST_F(SettingsViewTest, SectionsAreOrderedFromTopToBottom) {
    open();
    int y = -1;
    for (const char* name : {"title", "bindingList", "footer"}) {
        const int next = stage.find(name)->mapTo(&stage.window(), QPoint()).y();
        EXPECT_GT(next, y) << name;
        y = next;
    }
}

// Texts that must not be elided fit at the minimum window size, in both languages.
TEST_F(SettingsViewTest, NothingIsClippedInTheSmallestWindow) {
    stage.trust->trusted = false;
    stage.loginItems->refusal = "Permission denied";
    stage.helper->now = DesktopHelper::State::missing;
    stage.open({680, 480});
    stage.publish("2.0.0");
    stage.click("launchAtLogin");
    stage.recognise(GestureType::drawCircleCounterclockwise, "Files");
    for (const char* code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        const bool isWhole = test::waitFor([&] { return textsThatAreCut().empty(); });
        EXPECT_TRUE(isWhole) << code;
        EXPECT_EQ(textsThatAreCut(), std::vector<std::string>()) << code;
        EXPECT_EQ(stage.window().size(), QSize(680, 480));
    }
}

} // namespace
} // namespace glidemap
