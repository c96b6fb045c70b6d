#include "kit/qt_waiting.h"
#include "ui/controls/popover.h"
#include "ui/controls/stage.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>

namespace glidemap {
namespace {

using test::ControlsStage;

class PopoverTest : public testing::Test {
protected:
    PopoverTest() {
        stage.open();
        anchor->setFocus();
    }

    QPointer<Popover> openFrom(QWidget* control) {
        auto* content = new QLabel(QStringLiteral("Draw a circle"));
        content->setFixedSize(230, 150);
        auto* popover = new Popover(control, content);
        popover->onClosed = [this] {
            ++closings;
        };
        return popover;
    }

    static bool hasGone(const QPointer<Popover>& popover) {
        return test::waitFor([&popover] { return popover == nullptr; });
    }

    ControlsStage stage;
    QPushButton* anchor = stage.add(new QPushButton(QStringLiteral("Anchor")));
    QPushButton* other = stage.add(new QPushButton(QStringLiteral("Other")));
    int closings = 0;
};

TEST_F(PopoverTest, OpensInTheWindowOfTheAnchorAndTakesTheFocus) {
    const auto popover = openFrom(anchor);
    EXPECT_TRUE(popover->isVisible());
    EXPECT_EQ(popover->window(), &stage);
    EXPECT_TRUE(popover->hasFocus());
    EXPECT_EQ(popover->placement().card.size(), QSize(246, 166)); // 8 points around the content
}

TEST_F(PopoverTest, HasTheAccessibleDialogRole) {
    const auto popover = openFrom(anchor);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(popover)->role(), QAccessible::Dialog);
}

TEST_F(PopoverTest, ClickOutsideClosesThePopoverAndReachesTheTarget) {
    int clicks = 0;
    QObject::connect(other, &QPushButton::clicked, &stage, [&clicks] { ++clicks; });
    stage.resize(900, 700);
    const auto popover = openFrom(anchor);
    QTest::mouseClick(other, Qt::LeftButton);
    EXPECT_TRUE(hasGone(popover));
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(PopoverTest, ClickInsideKeepsThePopoverOpen) {
    const auto popover = openFrom(anchor);
    QTest::mouseClick(popover->findChild<QLabel*>(), Qt::LeftButton);
    QTest::mouseClick(popover.data(), Qt::LeftButton, {}, QPoint(3, popover->height() / 2));
    EXPECT_EQ(closings, 0);
    EXPECT_TRUE(popover->isVisible());
}

TEST_F(PopoverTest, ClickOnTheAnchorKeepsThePopoverOpen) {
    const auto popover = openFrom(anchor);
    QTest::mouseClick(anchor, Qt::LeftButton);
    EXPECT_EQ(closings, 0);
    EXPECT_TRUE(popover->isVisible());
}

TEST_F(PopoverTest, EscapeClosesOnlyThePopoverAndReturnsTheFocus) {
    int escapes = 0;
    const QShortcut shortcut(QKeySequence(Qt::Key_Escape), &stage, [&escapes] { ++escapes; });
    const auto popover = openFrom(anchor);
    QTest::keyClick(popover.data(), Qt::Key_Escape);
    EXPECT_TRUE(anchor->hasFocus());
    EXPECT_TRUE(hasGone(popover));
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(escapes, 0);
}

TEST_F(PopoverTest, TabMovesTheFocusBackToTheAnchor) {
    const auto popover = openFrom(anchor);
    QTest::keyClick(popover.data(), Qt::Key_Tab);
    EXPECT_TRUE(hasGone(popover));
    EXPECT_TRUE(anchor->hasFocus());
}

TEST_F(PopoverTest, SecondDismissIsIgnored) {
    const auto popover = openFrom(anchor);
    popover->dismiss();
    popover->dismiss();
    EXPECT_EQ(closings, 1);
}

TEST_F(PopoverTest, ClosesWhenTheAnchorIsHidden) {
    const auto popover = openFrom(anchor);
    anchor->hide();
    EXPECT_TRUE(hasGone(popover));
    EXPECT_EQ(closings, 1);
}

TEST_F(PopoverTest, IsDeletedWithTheAnchorWithoutCallingOnClosed) {
    const auto popover = openFrom(anchor);
    delete anchor;
    EXPECT_TRUE(hasGone(popover));
    EXPECT_EQ(closings, 0);
}

TEST_F(PopoverTest, SeveralPopoversAreIndependent) {
    const auto first = openFrom(anchor);
    const auto second = openFrom(other);
    EXPECT_TRUE(first->isVisible());
    EXPECT_TRUE(second->isVisible());
    second->dismiss();
    EXPECT_TRUE(hasGone(second));
    EXPECT_TRUE(first->isVisible());
}

TEST_F(PopoverTest, FollowsTheAnchorWhenTheWindowIsResized) {
    const auto popover = openFrom(anchor);
    const auto pointsAtAnchor = [this, &popover] {
        return popover->placement().arrowX == anchor->geometry().x() + anchor->width() / 2;
    };
    EXPECT_TRUE(pointsAtAnchor());
    stage.resize(500, 400);
    EXPECT_TRUE(test::waitFor(pointsAtAnchor));
    EXPECT_TRUE(stage.rect().contains(popover->geometry()));
}

TEST_F(PopoverTest, ClosesWhenTheAnchorIsScrolledOutOfView) {
    auto* area = stage.add(new QScrollArea);
    auto* tall = new QWidget;
    tall->resize(100, 3000);
    auto* within = new QPushButton(QStringLiteral("Within"), tall);
    area->setWidget(tall);
    area->show();
    QApplication::processEvents();
    const auto popover = openFrom(within);
    EXPECT_TRUE(popover->isVisible());
    tall->move(0, -2000);
    EXPECT_TRUE(hasGone(popover));
}

TEST_F(PopoverTest, ClickBesideTheArrowCountsAsOutside) {
    const auto popover = openFrom(anchor);
    QWidget* beneath = stage.childAt(popover->geometry().topLeft() - QPoint(5, 5));
    EXPECT_NE(beneath, popover.data());
    EXPECT_FALSE(popover->isAncestorOf(beneath));
}

} // namespace
} // namespace glidemap
