#include "kit/find_widget.h"
#include "kit/qt_waiting.h"
#include "ui/controls/dimmed.h"
#include "ui/controls/popover.h"
#include "ui/controls/symbol_button.h"
#include "ui/settings/binding_list_view.h"
#include "ui/settings/settings_stage.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QHoverEvent>
#include <QImage>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <utility>

namespace glidemap {
namespace {

using Place = std::optional<std::size_t>;

class BindingListViewTest : public testing::Test {
protected:
    void open(BindingList bindings) {
        stage = std::make_unique<test::SettingsStage>(std::move(bindings));
        stage->open();
        list = stage->find<BindingListView>("bindingList");
    }
    void focusList() const { list->setFocus(Qt::TabFocusReason); }
    QScrollBar& bar() const { return *list->findChild<QScrollArea*>()->verticalScrollBar(); }
    const BindingList& stored() const { return *(kept = stage->store->bindings()); }
    void press(Qt::Key key) const { stage->pressKey(key); }
    // Returns whether the row is entirely visible.
    bool isInSight(std::size_t index) const {
        const QWidget* row = stage->row(index);
        const QWidget* viewport = list->findChild<QScrollArea*>()->viewport();
        return row != nullptr &&
               viewport->rect().contains(QRect(row->mapTo(viewport, QPoint()), row->size()));
    }
    void change(std::size_t index, GestureType gesture) const {
        BindingList changed = stored();
        changed[index].gesture = gesture;
        stage->store->setBindings(std::move(changed));
    }

    std::unique_ptr<test::SettingsStage> stage;
    BindingListView* list = nullptr;
    mutable std::shared_ptr<const BindingList> kept;
};

TEST_F(BindingListViewTest, ShowsBindingsInStoreOrder) {
    open(defaultBindings());
    ASSERT_EQ(stage->rowCount(), 3);
    EXPECT_EQ(stage->rowText(0, "gestureName"), "Draw Circle (any direction)");
    EXPECT_EQ(stage->rowText(1, "gestureName"), "Hold + Tap Right");
    EXPECT_EQ(stage->rowText(2, "gestureName"), "Hold + Tap Left");
    EXPECT_LT(stage->row(0)->y(), stage->row(1)->y());
    EXPECT_LT(stage->row(1)->y(), stage->row(2)->y());
    EXPECT_FALSE(stage->isShown("emptyState"));
}

TEST_F(BindingListViewTest, EmptyListShowsTheEmptyState) {
    open({});
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(stage->text("emptyStateText"),
              "No bindings yet — click \"Add Binding\" in the top-right corner to create one.");
    EXPECT_EQ(stage->find("emptyStateText")->palette().color(QPalette::WindowText),
              Theme::shared().color(Role::secondary));
    EXPECT_EQ(stage->find<QLabel>("emptyStateText")->alignment(), Qt::AlignCenter);
    stage->choose("zh");
    EXPECT_EQ(stage->text("emptyStateText"), "还没有绑定，点右上角「添加绑定」创建一个。");
}

TEST_F(BindingListViewTest, EmptyStateIsShownOnlyWithoutBindings) {
    open({test::bound(GestureType::drawCircle)});
    stage->clickInRow(0, "delete");
    EXPECT_TRUE(stage->isShown("emptyState"));
    EXPECT_FALSE(list->isVisible());
    stage->store->setBindings(defaultBindings());
    EXPECT_FALSE(stage->isShown("emptyState"));
    EXPECT_EQ(stage->rowCount(), 3);
}

TEST_F(BindingListViewTest, ArrowKeysMoveTheSelectionAndStopAtTheEnds) {
    open(defaultBindings());
    focusList();
    EXPECT_EQ(list->selectedIndex(), Place(0));
    const std::pair<Qt::Key, std::size_t> steps[] = {
        {Qt::Key_Up, 0},  {Qt::Key_Down, 1}, {Qt::Key_Down, 2},    {Qt::Key_Down, 2},
        {Qt::Key_Up, 1},  {Qt::Key_Home, 0}, {Qt::Key_End, 2},     {Qt::Key_PageUp, 0},
        {Qt::Key_End, 2}, {Qt::Key_Home, 0}, {Qt::Key_PageDown, 2}};
    for (const auto& [key, expected] : steps) {
        press(key);
        EXPECT_EQ(list->selectedIndex(), Place(expected)) << key;
        EXPECT_TRUE(stage->row(expected)->isSelected());
    }
}

TEST_F(BindingListViewTest, DownKeySelectsTheFirstRowIfNoRowIsSelected) {
    open(defaultBindings());
    list->setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(list->selectedIndex(), std::nullopt);
    press(Qt::Key_Down);
    EXPECT_EQ(list->selectedIndex(), Place(0));
}

TEST_F(BindingListViewTest, SelectionStaysVisible) {
    open(test::manyBindings(100));
    focusList();
    for (int step = 0; step < 30; ++step) {
        press(Qt::Key_Down);
        ASSERT_TRUE(isInSight(list->selectedIndex().value())) << step;
    }
    press(Qt::Key_End);
    EXPECT_TRUE(isInSight(99));
    press(Qt::Key_PageUp);
    EXPECT_TRUE(isInSight(list->selectedIndex().value()));
    press(Qt::Key_Home);
    EXPECT_TRUE(isInSight(0));
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(BindingListViewTest, SpaceTogglesTheSelectedBinding) {
    open(defaultBindings());
    focusList();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_FALSE(stored()[1].enabled);
    press(Qt::Key_Space);
    EXPECT_TRUE(stored()[1].enabled);
    EXPECT_TRUE(stored()[0].enabled);
}

TEST_F(BindingListViewTest, ReturnEditsTheSelectedBinding) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        open(defaultBindings());
        focusList();
        press(Qt::Key_Down);
        press(key);
        EXPECT_TRUE(stage->window().view().showsEditor());
        EXPECT_EQ(stage->window().view().editedBinding(), stored()[1]);
    }
}

TEST_F(BindingListViewTest, DeleteKeyDeletesTheSelectedBindingAndSelectsANeighbour) {
    open(defaultBindings());
    const BindingList before = stored();
    focusList();
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_EQ(stored(), (BindingList{before[0], before[2]}));
    EXPECT_EQ(list->selectedIndex(), Place(1)); // the successor of the deleted binding
    press(Qt::Key_Delete);
    EXPECT_EQ(list->selectedIndex(), Place(0)); // the predecessor of the deleted binding
    press(Qt::Key_Delete);
    EXPECT_TRUE(stored().empty());
    EXPECT_TRUE(stage->isShown("emptyState"));
}

TEST_F(BindingListViewTest, HeldDeleteKeyDeletesOnlyOnce) {
    open(defaultBindings());
    focusList();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, true);
    QApplication::sendEvent(list, &repeated);
    EXPECT_EQ(stored().size(), 3);
}

TEST_F(BindingListViewTest, KeysWithModifiersAreIgnored) {
    open(defaultBindings());
    focusList();
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier}) {
        stage->pressKey(Qt::Key_Delete, modifier);
        stage->pressKey(Qt::Key_Down, modifier);
    }
    EXPECT_EQ(stored().size(), 3);
    EXPECT_EQ(list->selectedIndex(), Place(0));
}

TEST_F(BindingListViewTest, NothingIsDeletedOrEditedWithoutASelection) {
    open(defaultBindings());
    list->setFocus(Qt::OtherFocusReason);
    for (const auto key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Space}) {
        press(key);
    }
    EXPECT_EQ(stored().size(), 3);
    EXPECT_TRUE(stored()[0].enabled);
    EXPECT_FALSE(stage->window().view().showsEditor());
}

TEST_F(BindingListViewTest, ClickSelectsAndDoubleClickEdits) {
    open(defaultBindings());
    QTest::mouseClick(stage->row(1), Qt::LeftButton, {}, {200, 20});
    EXPECT_EQ(list->selectedIndex(), Place(1));
    EXPECT_TRUE(list->hasFocus());
    EXPECT_FALSE(stage->window().view().showsEditor());
    QTest::mouseDClick(stage->row(2), Qt::LeftButton, {}, {200, 20});
    EXPECT_EQ(stage->window().view().editedBinding(), stored()[2]);
}

TEST_F(BindingListViewTest, ArrowKeysReachEveryControlOfManyRowsAndScrollToIt) {
    open(test::manyBindings(40));
    focusList();
    for (std::size_t index = 0; index < 40; ++index) {
        for (const char* const name : {"enabled", "preview", "edit", "delete"}) {
            press(Qt::Key_Right);
            const QWidget* const focus = stage->window().focusWidget();
            ASSERT_EQ(focus->objectName(), name) << index;
            ASSERT_TRUE(stage->row(index)->isAncestorOf(focus)) << name;
        }
        ASSERT_EQ(list->selectedIndex(), Place(index));
        ASSERT_TRUE(isInSight(index)) << index;
        press(Qt::Key_Down);
    }
}

TEST_F(BindingListViewTest, ReturnOnARowButtonPressesTheButton) {
    open(defaultBindings());
    const BindingList before = stored();
    stage->row(0)->findChild<QWidget*>("delete")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    EXPECT_EQ(stored(), (BindingList{before[1], before[2]}));
    EXPECT_FALSE(stage->window().view().showsEditor());
    EXPECT_TRUE(list->hasFocus()); // the focused row was deleted
}

TEST_F(BindingListViewTest, ArrowKeysOnARowControlMoveTheSelection) {
    open(defaultBindings());
    stage->row(1)->findChild<QWidget*>("edit")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    EXPECT_EQ(list->selectedIndex(), Place(2));
    EXPECT_TRUE(list->hasFocus());
}

TEST_F(BindingListViewTest, TogglingOrEditingABindingKeepsTheRowsAndTheScrollPosition) {
    open(test::manyBindings(100));
    bar().setValue(1000);
    list->select(22);
    BindingRow* const row = stage->row(22);
    stage->clickInRow(21, "enabled");
    EXPECT_EQ(bar().value(), 1000);
    EXPECT_EQ(stage->row(22), row);
    EXPECT_EQ(list->selectedIndex(), Place(21)); // a click in a row selects the row
    change(22, GestureType::pinchIn);
    EXPECT_EQ(bar().value(), 1000);
    EXPECT_EQ(stage->row(22), row);
    EXPECT_EQ(stage->rowText(22, "gestureName"), "Pinch In");
    EXPECT_EQ(list->selectedIndex(), Place(21));
}

TEST_F(BindingListViewTest, DeletingAnotherBindingKeepsTheRowsTheSelectionAndTheScrollPosition) {
    open(test::manyBindings(100));
    bar().setValue(1000);
    list->select(22);
    BindingRow* const row = stage->row(22);
    BindingList left = stored();
    left.erase(left.begin() + 3);
    stage->store->setBindings(left);
    EXPECT_EQ(stage->row(21), row);
    EXPECT_EQ(list->selectedIndex(), Place(21));
    EXPECT_EQ(bar().value(), 1000);
}

TEST_F(BindingListViewTest, OpenDemonstrationSurvivesAnEdit) {
    open(defaultBindings());
    stage->clickInRow(1, "preview");
    change(0, GestureType::pinchIn);
    stage->recognise(GestureType::drawCircle);
    EXPECT_TRUE(stage->row(1)->showsPreview());
    change(1, GestureType::pinchOut);
    ASSERT_TRUE(stage->row(1)->showsPreview());
    EXPECT_EQ(stage->window().findChild<QLabel*>("previewName")->text(), "Pinch Out");
    stage->choose("zh");
    EXPECT_EQ(stage->window().findChild<QLabel*>("previewName")->text(), "两指张开（放大）");
}

TEST_F(BindingListViewTest, DemonstrationClosesWhenItsBindingIsDeletedOrTheListScrolls) {
    open(test::manyBindings(100));
    stage->clickInRow(1, "preview");
    ASSERT_TRUE(stage->row(1)->showsPreview());
    bar().setValue(20);
    EXPECT_FALSE(stage->row(1)->showsPreview());
    stage->clickInRow(1, "preview");
    BindingList left = stored();
    left.erase(left.begin() + 1);
    stage->store->setBindings(left);
    EXPECT_TRUE(test::waitFor([&] {
        const auto* popover = stage->window().findChild<QWidget*>("gesturePreview");
        return popover == nullptr || !popover->isVisible();
    }));
}

TEST_F(BindingListViewTest, DestroyedListClosesAFocusedDemonstration) {
    open(defaultBindings());
    stage->clickInRow(1, "preview");
    const QPointer<QWidget> preview = stage->window().findChild<QWidget*>("gesturePreview");
    ASSERT_NE(preview, nullptr);
    EXPECT_TRUE(preview->hasFocus());
    delete std::exchange(list, nullptr);
    EXPECT_TRUE(test::waitFor([&] { return preview == nullptr; }));
}

TEST_F(BindingListViewTest, AddedBindingIsSelectedAndShown) {
    open(test::manyBindings(100));
    BindingList more = stored();
    more.push_back(test::bound(GestureType::pinchIn));
    stage->store->setBindings(more);
    EXPECT_EQ(list->selectedIndex(), Place(100));
    EXPECT_TRUE(isInSight(100));
}

TEST_F(BindingListViewTest, BindingsWithTheSameIdentifierHaveSeparateRows) {
    BindingList twins = defaultBindings();
    twins[2].id = twins[0].id;
    open(twins);
    ASSERT_EQ(stage->rowCount(), 3);
    stage->clickInRow(2, "enabled"); // switches binding 0, the first one with this identifier
    EXPECT_FALSE(stored()[0].enabled);
    EXPECT_TRUE(stored()[2].enabled);
    EXPECT_EQ(stage->rowCount(), 3);
    stage->clickInRow(2, "delete");
    EXPECT_EQ(stored(), (BindingList{twins[1]}));
    EXPECT_EQ(stage->rowCount(), 1);
}

TEST_F(BindingListViewTest, CreatesRowsOnlyForVisibleAndNearbyBindings) {
    open(test::manyBindings(1000));
    EXPECT_LE(stage->rowCount(), 20);
    for (int value = 0; value < bar().maximum(); value += 97) {
        bar().setValue(value);
        ASSERT_LE(stage->rowCount(), 20);
    }
    bar().setValue(bar().maximum());
    EXPECT_TRUE(isInSight(999));
    EXPECT_EQ(stage->rowText(999, "actionText"), "Open App 999");
}

TEST_F(BindingListViewTest, FocusedRowKeepsTheFocusWhenScrolledOutOfView) {
    open(test::manyBindings(1000));
    QWidget* edit = stage->row(1)->findChild<QWidget*>("edit");
    edit->setFocus(Qt::TabFocusReason);
    bar().setValue(bar().maximum());
    EXPECT_TRUE(edit->hasFocus());
    press(Qt::Key_Down); // selects the row after the focused one
    EXPECT_EQ(list->selectedIndex(), Place(2));
    EXPECT_TRUE(isInSight(2));
}

TEST_F(BindingListViewTest, SelectedRowIsTintedAndHasAFocusRingOnlyForKeyboardUse) {
    open(defaultBindings());
    const Theme& theme = Theme::shared();
    const auto edge = [&] {
        return stage->pixel(*stage->row(0), {200, 1});
    };
    QTest::mouseClick(stage->row(0), Qt::LeftButton, {}, {200, 20});
    EXPECT_NE(edge(), theme.color(Role::accent));
    EXPECT_NE(stage->pixel(*stage->row(0), {300, 20}), theme.color(Role::card));
    EXPECT_EQ(stage->pixel(*stage->row(2), {300, 20}), theme.color(Role::card));
    press(Qt::Key_Home);
    EXPECT_EQ(edge(), theme.color(Role::accent));
}

TEST_F(BindingListViewTest, HoveredRowIsHighlighted) {
    open(defaultBindings());
    const auto ground = [&] {
        return stage->pixel(*stage->row(1), {300, 20});
    };
    const QColor before = ground();
    QTest::mouseMove(stage->row(1), {300, 20});
    EXPECT_TRUE(test::waitFor([&] { return stage->row(1)->underMouse(); }));
    EXPECT_NE(ground(), before);
}

TEST_F(BindingListViewTest, ArrowKeysMoveWithinARowAndTabLeavesTheList) {
    open(defaultBindings());
    focusList();
    const auto focus = [&] {
        return stage->window().focusWidget()->objectName().toStdString();
    };
    for (const char* const name : {"enabled", "preview", "edit", "delete", "delete"}) {
        press(Qt::Key_Right);
        EXPECT_EQ(focus(), name);
    }
    press(Qt::Key_Down);
    EXPECT_EQ(list->selectedIndex(), Place(1));
    EXPECT_EQ(focus(), "bindingList");
    press(Qt::Key_Right);
    EXPECT_TRUE(stage->row(1)->isAncestorOf(stage->window().focusWidget()));
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    EXPECT_EQ(focus(), "enabled");
    press(Qt::Key_Left);
    EXPECT_EQ(focus(), "bindingList");
    EXPECT_EQ(list->selectedIndex(), Place(1));
    press(Qt::Key_Right);
    press(Qt::Key_Tab);
    EXPECT_FALSE(list->isAncestorOf(stage->window().focusWidget()));
    EXPECT_NE(focus(), "bindingList");
}

TEST_F(BindingListViewTest, LooksDisabledButStaysUsableWhileGesturesAreOff) {
    open(defaultBindings());
    const auto isPale = [&](std::size_t index) {
        const QWidget* const content =
            stage->row(index)->findChild<QWidget*>("gestureName")->parentWidget();
        return isDimmed(content);
    };
    EXPECT_FALSE(isPale(0));
    stage->dispatcher->setMasterEnabled(false);
    EXPECT_TRUE(isPale(0));
    stage->clickInRow(0, "enabled");
    EXPECT_FALSE(stored()[0].enabled);
    stage->dispatcher->setMasterEnabled(true);
    EXPECT_TRUE(isPale(0)); // the binding itself is disabled
    EXPECT_FALSE(isPale(1));
}

TEST_F(BindingListViewTest, SeparatorsAppearOnlyBetweenRows) {
    open(defaultBindings());
    const QColor line = Theme::shared().color(Role::separator);
    const QImage picture = stage->window().grab().toImage();
    const QWidget* const under = stage->row(0)->parentWidget();
    const QPoint origin = under->mapTo(&stage->window(), QPoint());
    int lines = 0;
    for (int y = 0; y < under->height(); ++y) {
        lines += picture.pixelColor(origin + QPoint(under->width() / 2, y)) == line ? 1 : 0;
    }
    EXPECT_EQ(lines, 2);
}

TEST_F(BindingListViewTest, RowButtonsAreFaintUnlessTheRowIsSelectedOrHovered) {
    open(defaultBindings());
    const auto areFaint = [&](std::size_t index) {
        const auto& edit = test::find<SymbolButton>(*stage->row(index), "edit");
        const auto& trash = test::find<SymbolButton>(*stage->row(index), "delete");
        EXPECT_EQ(edit.isFaint(), trash.isFaint());
        return edit.isFaint();
    };
    for (const std::size_t index : {0, 1}) { // undoes the effect of the pointer's earlier position
        stage->row(index)->setAttribute(Qt::WA_UnderMouse, false);
        QHoverEvent away(QEvent::HoverLeave, QPointF(), QPointF(), QPointF());
        QApplication::sendEvent(stage->row(index), &away);
    }
    EXPECT_TRUE(areFaint(0) && areFaint(1));
    list->select(1);
    EXPECT_FALSE(areFaint(1));
    EXPECT_TRUE(areFaint(0));
    stage->row(0)->setAttribute(Qt::WA_UnderMouse);
    QHoverEvent hover(QEvent::HoverEnter, QPointF(5, 5), QPointF(), QPointF());
    QApplication::sendEvent(stage->row(0), &hover);
    EXPECT_FALSE(areFaint(0));
    stage->row(0)->setAttribute(Qt::WA_UnderMouse, false);
    QHoverEvent leave(QEvent::HoverLeave, QPointF(), QPointF(), QPointF());
    QApplication::sendEvent(stage->row(0), &leave);
    EXPECT_TRUE(areFaint(0));
}

TEST_F(BindingListViewTest, BadgeGrowsWithTheWindow) {
    const std::string name(60, 'W');
    open({test::bound(GestureType::drawCircle, LockScreen{}, AppScope{"org.example", name})});
    const QWidget* const badge = stage->row(0)->findChild<QWidget*>("scopeBadge");
    EXPECT_EQ(badge->width(), 200);
    stage->window().resize(1100, 600);
    EXPECT_TRUE(test::waitFor([&] { return badge->width() > 280; }));
}

} // namespace
} // namespace glidemap
