// Tests that an accidental deletion can be undone.
#include "kit/qt_waiting.h"
#include "ui/settings/binding_list_view.h"
#include "ui/settings/settings_stage.h"
#include "ui/settings/undo_bar.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QTest>
#include <QWindow>

namespace glidemap {
namespace {

using test::bound;

class UndoBarTest : public testing::Test {
protected:
    UndoBarTest() { stage.open(); }

    bool isOffered() const { return stage.isShown("undoBar"); }
    const BindingList& list() const { return *stage.store->bindings(); }
    void deleteRow(std::size_t index) { stage.clickInRow(index, "delete"); }

    const BindingList all{bound(GestureType::pinchIn), bound(GestureType::fixAndTapRight),
                          bound(GestureType::pinchOut)};
    mutable test::SettingsStage stage{all};
};

TEST_F(UndoBarTest, NamesTheDeletedBindingInBothLanguages) {
    EXPECT_FALSE(isOffered());
    deleteRow(1);
    ASSERT_TRUE(isOffered());
    EXPECT_EQ(stage.text("undoText"), "Deleted “Hold + Tap Right”");
    EXPECT_EQ(stage.text("undo"), "Undo");
    EXPECT_EQ(stage.find("undoBar")->accessibleName(), "Deleted “Hold + Tap Right”");
    Lang::shared().setCode("zh");
    EXPECT_EQ(stage.text("undoText"), "已删除“单指固定 + 右侧点按”");
    EXPECT_EQ(stage.text("undo"), "撤销");
    EXPECT_TRUE(isOffered());
}

TEST_F(UndoBarTest, UndoRestoresTheBindingWithItsPositionAndIdentifier) {
    for (std::size_t index = 0; index < all.size(); ++index) {
        deleteRow(index);
        ASSERT_EQ(list().size(), 2U);
        stage.click("undo");
        EXPECT_EQ(list(), all);
        EXPECT_FALSE(isOffered());
        EXPECT_EQ(stage.find<BindingListView>("bindingList")->selectedIndex(), index);
    }
}

TEST_F(UndoBarTest, ShortcutUndoesTheDeletionWhileTheBarIsVisible) {
    deleteRow(2);
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(list(), all);
    EXPECT_FALSE(isOffered());
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(list(), all);
}

TEST_F(UndoBarTest, ShortcutUndoesTheDeletionWithoutAFocusedControl) {
    deleteRow(2);
    if (QWidget* const focus = stage.window().focusWidget()) {
        focus->clearFocus();
    }
    QTest::keyClick(stage.window().windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(list(), all);
}

TEST_F(UndoBarTest, UndoRestoresTheOnlyBinding) {
    stage.store->setBindings({all[0]});
    deleteRow(0);
    EXPECT_TRUE(stage.isShown("emptyState"));
    ASSERT_TRUE(isOffered());
    stage.click("undo");
    EXPECT_EQ(list(), BindingList{all[0]});
}

TEST_F(UndoBarTest, NextChangeOfTheBindingsHidesTheBar) {
    deleteRow(0);
    stage.clickInRow(0, "enabled");
    EXPECT_FALSE(isOffered());
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(list().size(), 2U);
}

TEST_F(UndoBarTest, OnlyTheMostRecentDeletionCanBeUndone) {
    deleteRow(0);
    deleteRow(0);
    stage.click("undo");
    EXPECT_EQ(list(), (BindingList{all[1], all[2]}));
    EXPECT_FALSE(isOffered());
}

TEST_F(UndoBarTest, MasterSwitchChangesAndGesturesDoNotHideTheBar) {
    deleteRow(0);
    stage.click("enabled"); // the master switch is the first widget with this name
    stage.recognise(GestureType::twoFingerTap);
    EXPECT_TRUE(isOffered());
}

// Sends the events as the window system does, to the widget currently under the pointer.
TEST_F(UndoBarTest, SecondClickOfADoubleClickDeletesNothing) {
    QWidget* const trash = stage.row(0)->findChild<QWidget*>("delete");
    const QPoint at = trash->mapTo(&stage.window(), trash->rect().center());
    QTest::mouseDClick(stage.window().windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(list(), (BindingList{all[1], all[2]}));
    EXPECT_FALSE(stage.window().view().showsEditor());
    EXPECT_TRUE(isOffered());
}

TEST_F(UndoBarTest, SecondClickOfADoubleClickUndoesNothing) {
    deleteRow(0);
    QWidget* const undo = stage.find("undo");
    const QPoint at = undo->rect().center();
    const QPoint inWindow = undo->mapTo(&stage.window(), at);
    QMouseEvent second(QEvent::MouseButtonDblClick, at, inWindow, undo->mapToGlobal(at),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(undo, &second);
    QTest::mouseRelease(undo, Qt::LeftButton);
    EXPECT_TRUE(isOffered());
    EXPECT_EQ(list().size(), 2U);
}

TEST(UndoBarTimeoutTest, HidesAfterTenSeconds) {
    EXPECT_EQ(UndoBar::usualStay, std::chrono::seconds(10));
    const Lang lang{nullptr};
    UndoBar bar(lang, nullptr, std::chrono::milliseconds(50));
    bar.offer(GestureType::pinchIn);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(test::waitFor([&] { return !bar.isVisible(); }));
}

} // namespace
} // namespace glidemap
