#include "kit/qt_waiting.h"
#include "ui/controls/segmented_control.h"
#include "ui/controls/stage.h"

#include <gmock/gmock.h>

#include <QRadioButton>
#include <vector>

namespace glidemap {
namespace {

using test::ControlsStage;

class SegmentedControlTest : public testing::Test {
protected:
    SegmentedControlTest() {
        control->setTexts(
            {QStringLiteral("Global"), QStringLiteral("Specific App"), QStringLiteral("范围")});
        control->onChange = [this](int index) {
            reported.push_back(index);
        };
        stage.open();
    }

    QList<QRadioButton*> segments() const { return control->findChildren<QRadioButton*>(); }

    test::InStillness still;
    ControlsStage stage;
    SegmentedControl* control = stage.add(new SegmentedControl(3));
    std::vector<int> reported;
};

TEST_F(SegmentedControlTest, FirstSegmentIsSelectedInitially) {
    EXPECT_EQ(control->current(), 0);
    EXPECT_TRUE(segments()[0]->isChecked());
}

TEST_F(SegmentedControlTest, ClickSelectsTheSegmentAndCallsOnChange) {
    QTest::mouseClick(segments()[2], Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(control->current(), 2);
    EXPECT_EQ(control->groundPosition(), 2);
    EXPECT_EQ(reported, std::vector<int>{2});
}

TEST_F(SegmentedControlTest, ClickOnTheSelectedSegmentDoesNotCallOnChange) {
    QTest::mouseClick(segments()[0], Qt::LeftButton);
    EXPECT_THAT(reported, testing::IsEmpty());
}

TEST_F(SegmentedControlTest, SetCurrentDoesNotCallOnChange) {
    control->setCurrent(1);
    EXPECT_EQ(control->current(), 1);
    EXPECT_TRUE(segments()[1]->isChecked());
    EXPECT_THAT(reported, testing::IsEmpty());
}

TEST_F(SegmentedControlTest, InvalidIndexIsIgnored) {
    control->setCurrent(-1);
    control->setCurrent(3);
    EXPECT_EQ(control->current(), 0);
}

TEST_F(SegmentedControlTest, ArrowKeysMoveTheSelection) {
    segments()[0]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(segments()[0], Qt::Key_Right);
    QTest::keyClick(segments()[1], Qt::Key_Right);
    QTest::keyClick(segments()[2], Qt::Key_Left);
    EXPECT_EQ(reported, (std::vector<int>{1, 2, 1}));
    EXPECT_TRUE(segments()[1]->hasFocus());
}

TEST_F(SegmentedControlTest, OnlyTheSelectedSegmentIsATabStop) {
    control->setCurrent(1);
    QWidget* after = stage.add(new QRadioButton);
    after->show();
    stage.setFocusPolicy(Qt::StrongFocus);
    stage.setFocus();
    QTest::keyClick(&stage, Qt::Key_Tab);
    EXPECT_TRUE(segments()[1]->hasFocus());
    QTest::keyClick(segments()[1], Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
}

TEST_F(SegmentedControlTest, AssistiveTechnologySeesRadioButtonsWithTheirTexts) {
    EXPECT_EQ(test::roleOf(segments()[1]), QAccessible::RadioButton);
    EXPECT_EQ(test::nameOf(segments()[1]), QStringLiteral("Specific App"));
    control->setTexts({QStringLiteral("全局"), QStringLiteral("指定 App"), QStringLiteral("范围")});
    EXPECT_EQ(test::nameOf(segments()[1]), QStringLiteral("指定 App"));
}

TEST_F(SegmentedControlTest, AllSegmentsHaveEqualWidths) {
    EXPECT_NEAR(segments()[0]->width(), segments()[1]->width(), 1);
    EXPECT_NEAR(segments()[1]->width(), segments()[2]->width(), 1);
}

TEST_F(SegmentedControlTest, HighlightSlidesUnlessMotionIsReduced) {
    Theme::shared().pinReducedMotion(false);
    QTest::mouseClick(segments()[1], Qt::LeftButton);
    EXPECT_LT(control->groundPosition(), 1);
    EXPECT_TRUE(test::waitFor([this] { return control->groundPosition() == 1; }));
}

} // namespace
} // namespace glidemap
