#include "ui/settings/settings_stage.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

class ActivityFooterTest : public testing::Test {
protected:
    QColor colorOf(const char* label) const {
        return stage.find(label)->palette().color(QPalette::WindowText);
    }

    mutable test::SettingsStage stage{
        BindingList{test::bound(GestureType::drawCircle, LockScreen{})}};
    const Theme& theme = Theme::shared();
};

TEST_F(ActivityFooterTest, ShowsAHintUntilTheFirstGesture) {
    stage.open();
    EXPECT_EQ(stage.text("footerGesture"), "Try drawing a circle on the trackpad…");
    EXPECT_EQ(colorOf("footerGesture"), theme.color(Role::secondary));
    EXPECT_FALSE(stage.isShown("footerAction"));
    EXPECT_FALSE(stage.isShown("footerApplication"));
    stage.choose("zh");
    EXPECT_EQ(stage.text("footerGesture"), "在触控板上试试画一个圆…");
}

TEST_F(ActivityFooterTest, ShowsGestureActionAndApplication) {
    stage.open();
    stage.recognise(GestureType::drawCircle, "Files");
    EXPECT_EQ(stage.text("footerGesture"), "Last gesture: Draw Circle (any direction)");
    EXPECT_EQ(stage.text("footerAction"), "→ Lock Screen");
    EXPECT_EQ(stage.text("footerApplication"), "@ Files");
    EXPECT_EQ(colorOf("footerAction"), theme.color(Role::green));
    EXPECT_EQ(colorOf("footerApplication"), theme.color(Role::secondary));
}

TEST_F(ActivityFooterTest, ShowsThatNoBindingMatched) {
    stage.open();
    stage.recognise(GestureType::pinchIn);
    EXPECT_EQ(stage.text("footerGesture"), "Last gesture: Pinch In");
    EXPECT_EQ(stage.text("footerAction"), "(no matching binding)");
    EXPECT_EQ(colorOf("footerAction"), theme.color(Role::secondary));
    EXPECT_FALSE(stage.isShown("footerApplication"));
    stage.choose("zh");
    EXPECT_EQ(stage.text("footerGesture"), "最近手势：两指捏合（收拢）");
    EXPECT_EQ(stage.text("footerAction"), "（无匹配绑定）");
}

// The gesture's name follows the language; the action keeps the text that it had when it ran.
TEST_F(ActivityFooterTest, ActionTextIsNotTranslatedAfterALanguageChange) {
    stage.open();
    stage.recognise(GestureType::drawCircle);
    stage.choose("zh");
    EXPECT_EQ(stage.text("footerGesture"), "最近手势：单指画圆（任意方向）");
    EXPECT_EQ(stage.text("footerAction"), "→ Lock Screen");
}

TEST_F(ActivityFooterTest, ShowsOnlyTheNewestGesture) {
    stage.open();
    stage.recognise(GestureType::drawCircle, "Files");
    stage.recognise(GestureType::pinchOut);
    EXPECT_EQ(stage.text("footerGesture"), "Last gesture: Pinch Out");
    EXPECT_FALSE(stage.isShown("footerApplication"));
}

TEST_F(ActivityFooterTest, ShowsGesturesEvenWithoutBindings) {
    test::SettingsStage empty;
    empty.open();
    empty.recognise(GestureType::pinchIn, "Files");
    EXPECT_TRUE(empty.isShown("emptyState"));
    EXPECT_EQ(empty.text("footerGesture"), "Last gesture: Pinch In");
    EXPECT_EQ(empty.text("footerApplication"), "@ Files");
}

TEST_F(ActivityFooterTest, TextsUseTheCaptionFontWithEightPointsAboveAndBelow) {
    stage.open();
    stage.recognise(GestureType::drawCircle, "Files");
    for (const char* name : {"footerGesture", "footerAction", "footerApplication"}) {
        EXPECT_EQ(stage.find(name)->font(), theme.font(TextStyle::caption)) << name;
        EXPECT_EQ(stage.find(name)->y(), 8) << name;
    }
    const QWidget& footer = *stage.find("footer");
    EXPECT_EQ(footer.geometry().bottom() + 1, footer.parentWidget()->height());
    EXPECT_EQ(footer.height() - 8, stage.find("footerGesture")->geometry().bottom() + 1);
}

} // namespace
} // namespace glidemap
