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
        EXPECT_FALSE(showsAnIcon(stage, panel));
        RunningGlidemap glidemap(stage);
        EXPECT_TRUE(waitUntil([&] { return showsAnIcon(stage, panel); })) << "nothing comes";
        glidemap.end(SIGTERM);
        EXPECT_TRUE(waitUntil([&] { return !showsAnIcon(stage, panel); })) << "it stays";
    }

    // An empty panel is its ground and a line; an icon has smooth edges, in many shades.
    static bool showsAnIcon(const Stage& stage, const XfcePanel& panel) {
        constexpr std::size_t fewest = 10;
        return Picture(stage.display, panel.area()).countOfColours() >= fewest;
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
