#include "kit/qt_waiting.h"
#include "ui/controls/stage.h"
#include "ui/controls/switch.h"

#include <gmock/gmock.h>

#include <QImage>
#include <vector>

namespace glidemap {
namespace {

using test::ControlsStage;

class SwitchTest : public testing::Test {
protected:
    SwitchTest() {
        knob->setText(QStringLiteral("Enabled"));
        QObject::connect(knob, &QCheckBox::toggled, &stage,
                         [this](bool on) { reported.push_back(on); });
    }

    ControlsStage stage;
    Switch* knob = stage.add(new Switch);
    std::vector<bool> reported;
};

TEST_F(SwitchTest, AssistiveTechnologySeesACheckBox) {
    EXPECT_EQ(test::roleOf(knob), QAccessible::CheckBox);
    EXPECT_EQ(test::nameOf(knob), QStringLiteral("Enabled"));
    EXPECT_FALSE(test::stateOf(knob).checked);
    knob->setChecked(true);
    EXPECT_TRUE(test::stateOf(knob).checked);
}

TEST_F(SwitchTest, ClickOnTheKnobOrTheTextTogglesTheState) {
    stage.open();
    QTest::mouseClick(knob, Qt::LeftButton, {}, QPoint(knob->width() - 10, knob->height() / 2));
    QTest::mouseClick(knob, Qt::LeftButton, {}, QPoint(10, knob->height() / 2));
    EXPECT_EQ(reported, (std::vector<bool>{true, false}));
}

TEST_F(SwitchTest, SpaceBarTogglesTheState) {
    stage.open();
    knob->setFocus(Qt::TabFocusReason);
    QTest::keyClick(knob, Qt::Key_Space);
    EXPECT_EQ(reported, std::vector<bool>{true});
}

TEST_F(SwitchTest, SetCheckedMakesTheKnobSlideToItsEndPosition) {
    stage.open();
    knob->setChecked(true);
    EXPECT_LT(knob->knobPosition(), 1);
    EXPECT_TRUE(test::waitFor([this] { return knob->knobPosition() == 1; }));
}

TEST_F(SwitchTest, ClickMakesTheKnobSlideToItsEndPosition) {
    stage.open();
    QTest::mouseClick(knob, Qt::LeftButton);
    EXPECT_LT(knob->knobPosition(), 1);
    EXPECT_TRUE(test::waitFor([this] { return knob->knobPosition() == 1; }));
}

TEST_F(SwitchTest, ReducedMotionMovesTheKnobAtOnce) {
    const test::InStillness still;
    stage.open();
    knob->setChecked(true);
    EXPECT_EQ(knob->knobPosition(), 1);
    QTest::mouseClick(knob, Qt::LeftButton);
    EXPECT_EQ(knob->knobPosition(), 0);
}

TEST_F(SwitchTest, StateSetBeforeTheSwitchIsShownAppearsWithoutAnimation) {
    knob->setChecked(true);
    stage.open();
    EXPECT_EQ(knob->knobPosition(), 1);
}

TEST_F(SwitchTest, TextPrecedesTheTrackInBothLayoutDirections) {
    const test::InStillness still;
    knob->setChecked(true);
    knob->resize(knob->sizeHint());
    const QColor accent = Theme::shared().color(Role::accentGround);
    const auto isTrackAt = [&](int x) {
        return knob->grab().toImage().pixelColor(x, knob->height() / 2) == accent;
    };
    EXPECT_TRUE(isTrackAt(knob->width() - 32));
    EXPECT_FALSE(isTrackAt(10));
    knob->setLayoutDirection(Qt::RightToLeft);
    EXPECT_TRUE(isTrackAt(31));
    EXPECT_FALSE(isTrackAt(knob->width() - 11));
}

} // namespace
} // namespace glidemap
