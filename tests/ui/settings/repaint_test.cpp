// Tests that the idle window does not repaint, in each of its states.
#include "kit/qt_waiting.h"
#include "kit/repaint_count.h"
#include "ui/settings/settings_stage.h"
#include "ui/theme/theme.h"

#include <gmock/gmock.h>

namespace glidemap {
namespace {

using testing::IsEmpty;

class RepaintTest : public testing::Test {
protected:
    RepaintTest() {
        QApplication::setCursorFlashTime(0);
        Theme::shared().pinReducedMotion(true); // stops the demonstrations
    }
    ~RepaintTest() override {
        QApplication::setCursorFlashTime(cursorFlashTime);
        Theme::shared().pinReducedMotion(std::nullopt);
    }

    // The sheet opens without an animation, because motion is reduced.
    void openListOfGestures() const {
        stage.click("addBinding");
        stage.click("gesturePicker");
        ASSERT_NE(stage.find("gestureList"), nullptr);
    }

    static void expectNothingAtRest() {
        test::RepaintCount count;
        count.countAtRest();
        EXPECT_THAT(count.paints, IsEmpty());
        EXPECT_THAT(count.layoutRequests, IsEmpty());
    }

    const int cursorFlashTime = QApplication::cursorFlashTime();
    mutable test::SettingsStage stage{defaultBindings()};
};

TEST_F(RepaintTest, ListDoesNotRepaintAtRest) {
    stage.open();
    expectNothingAtRest();
}

TEST_F(RepaintTest, EmptyStateDoesNotRepaintAtRest) {
    stage.store->setBindings({});
    stage.open();
    expectNothingAtRest();
}

TEST_F(RepaintTest, NoticesDoNotRepaintAtRest) {
    stage.trust->trusted = false;
    stage.open();
    stage.publish("99.0");
    expectNothingAtRest();
}

TEST_F(RepaintTest, UndoBarDoesNotRepaintAtRest) {
    stage.open();
    stage.clickInRow(0, "delete");
    ASSERT_TRUE(stage.isShown("undoBar"));
    expectNothingAtRest();
}

TEST_F(RepaintTest, OpenPreviewDoesNotRepaintAtRest) {
    stage.open();
    stage.clickInRow(0, "preview");
    ASSERT_TRUE(stage.row(0)->showsPreview());
    expectNothingAtRest();
}

TEST_F(RepaintTest, EditorDoesNotRepaintAtRest) {
    stage.open();
    stage.click("addBinding");
    expectNothingAtRest();
}

TEST_F(RepaintTest, GestureListDoesNotRepaintAtRest) {
    stage.open();
    openListOfGestures();
    expectNothingAtRest();
}

// The demonstration repaints only its own area.
TEST_F(RepaintTest, RunningDemonstrationRepaintsNoOtherControl) {
    Theme::shared().pinReducedMotion(false);
    stage.open();
    stage.clickInRow(0, "preview");
    test::RepaintCount count;
    count.countAtRest();
    EXPECT_TRUE(test::waitFor([&] { return count.paints["previewDemo"] > 2; }));
    EXPECT_THAT(count.layoutRequests, IsEmpty());
    EXPECT_EQ(count.paints.count("previewName"), 0U);
    EXPECT_EQ(count.paints.count("bindingRow"), 0U);
}

TEST_F(RepaintTest, DemonstrationBehindTheGestureListStops) {
    stage.open();
    openListOfGestures();
    Theme::shared().pinReducedMotion(false);
    expectNothingAtRest();
    stage.pressKey(Qt::Key_Escape);
    test::RepaintCount count;
    EXPECT_TRUE(test::waitFor([&] { return count.paints["gestureDemo"] > 2; }));
}

} // namespace
} // namespace glidemap
