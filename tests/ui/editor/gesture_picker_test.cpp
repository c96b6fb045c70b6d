#include "kit/find_widget.h"
#include "kit/in_language.h"
#include "kit/printers.h"
#include "kit/qt_waiting.h"
#include "ui/demo/gesture_demo_view.h"
#include "ui/editor/gesture_picker.h"
#include "ui/theme/item_roles.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <string>
#include <vector>

namespace glidemap {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A substitute for the sheet, which records every key that no control in it accepted.
class Sheet : public QWidget {
public:
    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

class GesturePickerTest : public testing::Test {
protected:
    GesturePickerTest() {
        sheet.resize(460, 640);
        auto* column = new QVBoxLayout(&sheet);
        picker = new GesturePicker(Lang::shared());
        column->addWidget(picker);
        column->addStretch();
        column->addWidget(new QLineEdit);
        picker->onPick = [this](GestureType gesture) {
            picked.push_back(gesture);
        };
        sheet.show();
        picker->setFocus();
        EXPECT_TRUE(test::waitForWindowActive(&sheet));
    }

    QLineEdit& search() const { return test::find<QLineEdit>(sheet, "gestureSearch"); }
    QListView& list() const { return test::find<QListView>(sheet, "gestureList"); }
    void key(Qt::Key code) const { QTest::keyClick(sheet.focusWidget(), code); }
    void type(const std::string& text) const {
        for (const char letter : text) {
            QTest::keyClick(sheet.focusWidget(), letter);
        }
    }
    std::string marked() const { return list().currentIndex().data().toString().toStdString(); }

    // Returns the entries; "[Taps]" is a heading.
    std::vector<std::string> entries() const {
        std::vector<std::string> texts;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            const QModelIndex index = list().model()->index(row, 0);
            const std::string text = index.data().toString().toStdString();
            texts.push_back(index.data(headingRole).toBool() ? "[" + text + "]" : text);
        }
        return texts;
    }

    // Waits, because the event loop deletes the popover later.
    void expectClosed() const {
        EXPECT_FALSE(picker->isOpen());
        EXPECT_TRUE(
            test::waitFor([this] { return sheet.findChild<QWidget*>("gestureList") == nullptr; }));
        EXPECT_EQ(sheet.focusWidget(), picker);
    }

    test::InLanguage language{"en"};
    Sheet sheet;
    GesturePicker* picker;
    std::vector<GestureType> picked;
};

TEST_F(GesturePickerTest, ShowsTheGestureNameAndSymbol) {
    EXPECT_EQ(picker->currentText(), "Draw Circle (any direction)");
    picker->setGesture(GestureType::fourFingerSwipeUp);
    EXPECT_EQ(picker->currentText(), "Four-Finger Swipe Up");
    EXPECT_FALSE(picker->itemIcon(picker->currentIndex()).isNull());
    EXPECT_EQ(picker->gesture(), GestureType::fourFingerSwipeUp);
    EXPECT_THAT(picked, IsEmpty()) << "nothing was picked";
}

TEST_F(GesturePickerTest, ListGroupsEveryGestureByCategoryInCatalogueOrder) {
    picker->showPopup();
    std::vector<std::string> expected;
    for (const GestureCategory group : allGestureCategories) {
        expected.push_back("[" + displayName(group) + "]");
        for (const GestureType gesture : gestures(group)) {
            expected.push_back(displayName(gesture));
        }
    }
    EXPECT_EQ(entries(), expected);
    EXPECT_EQ(expected.size(), 58U);
    for (int row = 0; row < list().model()->rowCount(); ++row) {
        const QModelIndex index = list().model()->index(row, 0);
        const bool isHeading = index.data(headingRole).toBool();
        EXPECT_EQ(index.flags().testFlag(Qt::ItemIsSelectable), !isHeading) << row;
        EXPECT_EQ(index.data(Qt::DecorationRole).isNull(), isHeading) << row;
    }
}

TEST_F(GesturePickerTest, ListOpensAtTheSelectedGestureWithinTheWindow) {
    picker->setGesture(GestureType::threeFingerLongPress);
    picker->showPopup();
    EXPECT_TRUE(picker->isOpen());
    EXPECT_EQ(list().window(), &sheet);
    EXPECT_EQ(sheet.focusWidget(), &search());
    EXPECT_EQ(marked(), "Three-Finger Long Press");
    EXPECT_TRUE(test::waitFor([this] {
        return list().viewport()->rect().contains(list().visualRect(list().currentIndex()));
    }));
    EXPECT_TRUE(sheet.rect().contains(QRect(list().mapTo(&sheet, QPoint()), list().size())));
}

TEST_F(GesturePickerTest, KeysOpenTheList) {
    for (const Qt::Key opening : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_F4}) {
        key(opening);
        EXPECT_TRUE(picker->isOpen()) << opening;
        key(Qt::Key_Escape);
        expectClosed();
    }
    EXPECT_THAT(sheet.keys, IsEmpty());
}

TEST_F(GesturePickerTest, FirstClickOpensTheListAndSecondClickClosesIt) {
    QTest::mouseClick(picker, Qt::LeftButton);
    EXPECT_TRUE(picker->isOpen());
    QTest::mouseClick(picker, Qt::LeftButton);
    expectClosed();
    QTest::mouseClick(picker, Qt::RightButton);
    EXPECT_FALSE(picker->isOpen());
}

TEST_F(GesturePickerTest, TypingOnThePickerOpensTheListAndStartsTheSearch) {
    type("five sw");
    EXPECT_TRUE(picker->isOpen());
    EXPECT_EQ(search().text(), "five sw");
    EXPECT_THAT(entries(),
                ElementsAre("[Swipes]", "Five-Finger Swipe Left", "Five-Finger Swipe Right",
                            "Five-Finger Swipe Up", "Five-Finger Swipe Down"));
    EXPECT_EQ(marked(), "Five-Finger Swipe Left");
}

TEST_F(GesturePickerTest, ShortcutsDoNotOpenTheList) {
    QTest::keyClick(picker, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(picker, Qt::Key_A, Qt::AltModifier);
    EXPECT_FALSE(picker->isOpen());
}

TEST_F(GesturePickerTest, ClosedPickerPassesReturnAndEscapeToTheSheet) {
    key(Qt::Key_Return);
    key(Qt::Key_Enter);
    key(Qt::Key_Escape);
    EXPECT_FALSE(picker->isOpen());
    EXPECT_THAT(sheet.keys, ElementsAre(Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape));
}

TEST_F(GesturePickerTest, EscapeClosesOnlyTheList) {
    picker->showPopup();
    type("five");
    key(Qt::Key_Escape);
    expectClosed();
    EXPECT_THAT(sheet.keys, IsEmpty());
    EXPECT_THAT(picked, IsEmpty());
}

// In the editor, the open list covers the editor's demonstration. The list therefore shows a
// demonstration of the highlighted gesture itself.
TEST_F(GesturePickerTest, HighlightedGestureIsDemonstratedWhileBrowsing) {
    picker->setGesture(GestureType::pinchIn);
    picker->showPopup();
    auto& demo = test::find<GestureDemoView>(sheet, "browsedGesture");
    EXPECT_EQ(demo.shownGesture(), GestureType::pinchIn);
    EXPECT_TRUE(demo.isVisible());
    type("five sw");
    EXPECT_EQ(demo.shownGesture(), GestureType::fiveFingerSwipeLeft);
    key(Qt::Key_Down);
    EXPECT_EQ(demo.shownGesture(), GestureType::fiveFingerSwipeRight);
    EXPECT_EQ(demo.accessibleName(), "Five-Finger Swipe Right");
    const QRect last = list().visualRect(list().model()->index(4, 0));
    QMouseEvent hover(QEvent::MouseMove, last.center(),
                      list().viewport()->mapToGlobal(QPointF(last.center())), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(list().viewport(), &hover);
    EXPECT_EQ(demo.shownGesture(), GestureType::fiveFingerSwipeDown) << "the pointer browses, too";
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(list().viewport(), &leave);
    EXPECT_EQ(demo.shownGesture(), GestureType::fiveFingerSwipeRight);
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(GesturePickerTest, ListHeightFitsTheResults) {
    picker->showPopup();
    const int full = list().height();
    EXPECT_TRUE(list().verticalScrollBar()->isVisible());
    type("corner");
    const auto contents = [this] {
        const QModelIndex last = list().model()->index(list().model()->rowCount() - 1, 0);
        return list().visualRect(last).bottom() + 1;
    };
    EXPECT_TRUE(test::waitFor([&] { return list().height() == contents(); }));
    EXPECT_LT(list().height(), full);
    EXPECT_FALSE(list().verticalScrollBar()->isVisible());
    search().clear();
    EXPECT_TRUE(test::waitFor([&] { return list().height() == full; }));
}

TEST_F(GesturePickerTest, ReturnPicksTheHighlightedGesture) {
    type("four long");
    EXPECT_EQ(marked(), "Four-Finger Long Press");
    key(Qt::Key_Return);
    expectClosed();
    EXPECT_THAT(picked, ElementsAre(GestureType::fourFingerLongPress));
    EXPECT_EQ(picker->currentText(), "Four-Finger Long Press");
    EXPECT_THAT(sheet.keys, IsEmpty()) << "nor does the sheet save";
}

TEST_F(GesturePickerTest, PickingTheCurrentGestureClosesWithoutCallingOnPick) {
    picker->showPopup();
    key(Qt::Key_Enter);
    expectClosed();
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(GesturePickerTest, ReturnPicksNothingWithoutAMatch) {
    type("six");
    EXPECT_THAT(entries(), IsEmpty());
    EXPECT_FALSE(list().isVisible());
    EXPECT_TRUE(test::find<QLabel>(sheet, "nothingFound").isVisible());
    EXPECT_EQ(test::find<QLabel>(sheet, "nothingFound").text(), "No matching gestures");
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    EXPECT_TRUE(picker->isOpen());
    EXPECT_THAT(picked, IsEmpty());
    EXPECT_THAT(sheet.keys, IsEmpty());
}

TEST_F(GesturePickerTest, ArrowKeysSkipHeadingsAndStopAtTheEnds) {
    picker->setGesture(GestureType::drawCircleCounterclockwise);
    picker->showPopup();
    key(Qt::Key_Down);
    EXPECT_EQ(marked(), "Hold + Tap Right");
    key(Qt::Key_Up);
    EXPECT_EQ(marked(), "Draw Circle (counter-clockwise)");
    key(Qt::Key_PageUp);
    EXPECT_EQ(marked(), "Draw Circle (any direction)");
    key(Qt::Key_Up);
    EXPECT_EQ(marked(), "Draw Circle (any direction)");
    for (int page = 0; page < 6; ++page) {
        key(Qt::Key_PageDown);
    }
    EXPECT_EQ(marked(), "Four-Finger Long Press");
    key(Qt::Key_Down);
    EXPECT_EQ(marked(), "Four-Finger Long Press");
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().currentIndex())));
    key(Qt::Key_Return);
    EXPECT_THAT(picked, ElementsAre(GestureType::fourFingerLongPress));
}

TEST_F(GesturePickerTest, HeadingIsVisibleWhenItsFirstEntryIsHighlighted) {
    picker->setGesture(GestureType::fourFingerLongPress);
    picker->showPopup();
    for (int page = 0; page < 6; ++page) {
        key(Qt::Key_PageUp);
    }
    EXPECT_EQ(marked(), "Draw Circle (any direction)");
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().model()->index(0, 0))));
}

TEST_F(GesturePickerTest, ClickPicksAGesture) {
    picker->showPopup();
    type("corner");
    const QModelIndex second = list().model()->index(2, 0);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(second).center());
    expectClosed();
    EXPECT_THAT(picked, ElementsAre(GestureType::cornerTapTopRight));
}

TEST_F(GesturePickerTest, ClickOnAHeadingPicksNothing) {
    picker->showPopup();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualRect(list().model()->index(0, 0)).center());
    EXPECT_TRUE(picker->isOpen());
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(GesturePickerTest, ClickOutsideClosesAndPicksNothing) {
    picker->showPopup();
    QTest::mouseClick(&sheet, Qt::LeftButton, {}, QPoint(3, 630));
    EXPECT_FALSE(picker->isOpen());
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(GesturePickerTest, TabReturnsFromTheListToThePicker) {
    for (const Qt::Key leaving : {Qt::Key_Tab, Qt::Key_Backtab}) {
        picker->showPopup();
        key(leaving);
        expectClosed();
    }
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(GesturePickerTest, HiddenPickerClosesItsList) {
    picker->showPopup();
    picker->hide();
    EXPECT_FALSE(picker->isOpen());
}

TEST_F(GesturePickerTest, DestroyedPickerClosesItsList) {
    picker->showPopup();
    delete picker;
    EXPECT_TRUE(
        test::waitFor([this] { return sheet.findChild<QWidget*>("gestureList") == nullptr; }));
}

TEST_F(GesturePickerTest, AllTextsFollowTheLanguageIncludingThoseOfTheOpenList) {
    type("five t");
    Lang::shared().setCode("zh");
    EXPECT_EQ(picker->currentText(), "单指画圆（任意方向）");
    EXPECT_EQ(search().text(), "five t") << "the typed text stays and finds the same gestures";
    EXPECT_THAT(entries(), testing::Contains("五指轻点"));
    EXPECT_THAT(entries(), testing::Contains("[多指轻点]"));
    EXPECT_EQ(search().placeholderText(), "搜索手势");
    EXPECT_EQ(search().accessibleName(), "搜索手势");
    EXPECT_EQ(list().accessibleName(), "触控板手势");
    EXPECT_EQ(test::find<QLabel>(sheet, "nothingFound").text(), "没有匹配的手势");
    Lang::shared().setCode("en");
    EXPECT_EQ(picker->currentText(), "Draw Circle (any direction)");
    EXPECT_EQ(search().placeholderText(), "Search gestures");
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(GesturePickerTest, SearchFindsChineseNamesInTheEnglishInterface) {
    picker->showPopup();
    search().setText("五指轻点");
    EXPECT_THAT(entries(), ElementsAre("[Taps]", "Five-Finger Tap"));
}

TEST_F(GesturePickerTest, AssistiveTechnologySeesAComboBoxAndAList) {
    QAccessibleInterface* const closed = QAccessible::queryAccessibleInterface(picker);
    ASSERT_NE(closed, nullptr);
    EXPECT_EQ(closed->role(), QAccessible::ComboBox);
    EXPECT_EQ(closed->text(QAccessible::Value), "Draw Circle (any direction)");
    picker->showPopup();
    QAccessibleInterface* const open = QAccessible::queryAccessibleInterface(&list());
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->role(), QAccessible::List);
    EXPECT_EQ(open->text(QAccessible::Name), "Trackpad gesture");
    ASSERT_EQ(open->childCount(), 58);
    EXPECT_EQ(open->child(1)->role(), QAccessible::ListItem);
    EXPECT_EQ(open->child(1)->text(QAccessible::Name), "Draw Circle (any direction)");
    EXPECT_EQ(open->child(1)->text(QAccessible::Description), "Current choice");
    EXPECT_EQ(open->child(2)->text(QAccessible::Description), "");
    QAccessibleInterface* const field = QAccessible::queryAccessibleInterface(&search());
    EXPECT_EQ(field->role(), QAccessible::EditableText);
    EXPECT_EQ(field->text(QAccessible::Name), "Search gestures");
}

// Opens the list as assistive technology does.
TEST_F(GesturePickerTest, AccessibleActionOpensTheList) {
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(picker);
    seen->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(picker->isOpen());
}

} // namespace

} // namespace glidemap
