// The status item in a real panel, which shows it in one of two ways.
#include "application_test_base.h"
#include "picture.h"
#include "xfce_panel.h"

#include <csignal>

namespace glidemap::application {
namespace {

class PanelTest : public ApplicationTest {
protected:
    void SetUp() override {
        ApplicationTest::SetUp();
        if (!XfcePanel::isInstalled()) {
            GTEST_SKIP() << "xfce4-panel is not installed";
        }
    }

    // The item comes when the program does, and goes with it.
    static void expectItemOn(const XfcePanel& panel, Stage& stage) {
        // Until it has drawn itself it is of one colour.
        ASSERT_TRUE(
            waitUntil([&] { return Picture(stage.display, panel.area()).countOfColours() > 1; }));
        const Picture empty(stage.display, panel.area());
        RunningGlidemap glidemap(stage);
        EXPECT_TRUE(waitUntil([&] { return differs(stage, panel, empty); }))
            << "the panel shows nothing new";
        glidemap.end(SIGTERM);
        EXPECT_TRUE(waitUntil([&] { return !differs(stage, panel, empty); }))
            << "the panel still shows it";
    }

    static bool differs(const Stage& stage, const XfcePanel& panel, const Picture& before) {
        return Picture(stage.display, panel.area()).differences(before) > 0;
    }
};

TEST_F(PanelTest, ItShowsTheItemThatComesOverTheMessageBus) {
    Stage stage(Panel::absent);
    const XfcePanel panel(stage.display, stage.session);
    stage.session.waitForName("org.kde.StatusNotifierWatcher");
    expectItemOn(panel, stage);
}

// A panel on another bus is one that the program can reach over the screen only.
TEST_F(PanelTest, ItShowsTheSmallWindowOfAProgramThatFindsNoHostOnItsBus) {
    Stage stage(Panel::absent);
    const desktops::PrivateBus busOfItsOwn;
    const XfcePanel panel(stage.display, busOfItsOwn);
    ASSERT_TRUE(waitUntil([&] { return stage.display.hasOwner("_NET_SYSTEM_TRAY_S0"); }));
    expectItemOn(panel, stage);
}

} // namespace
} // namespace glidemap::application
