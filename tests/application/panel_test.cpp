// Tests the status item in a real panel, which shows items from the message bus and also embeds
// small windows (XEmbed).
#include "application_test_base.h"
#include "picture.h"
#include "xfce_panel.h"

#include <csignal>

namespace glidemap::test {
namespace {

class PanelTest : public ApplicationTest {
protected:
    void SetUp() override {
        ApplicationTest::SetUp();
        if (!XfcePanel::isInstalled()) {
            GTEST_SKIP() << "xfce4-panel is not installed";
        }
    }

    // Expects that the item appears when the program starts, and disappears when the program exits.
    static void expectItemOn(const XfcePanel& panel, ApplicationStage& stage) {
        EXPECT_FALSE(showsAnIcon(stage, panel));
        RunningGlidemap glidemap(stage);
        EXPECT_TRUE(waitUntil([&] { return showsAnIcon(stage, panel); }))
            << "the icon does not appear";
        glidemap.end(SIGTERM);
        EXPECT_TRUE(waitUntil([&] { return !showsAnIcon(stage, panel); }))
            << "the icon does not disappear";
    }

    // An empty panel has two colours: its background and a line. The smooth edges of an icon have
    // many more.
    static bool showsAnIcon(const ApplicationStage& stage, const XfcePanel& panel) {
        constexpr std::size_t fewest = 10;
        return Picture(stage.display, panel.area()).countOfColours() >= fewest;
    }
};

TEST_F(PanelTest, PanelOnTheSameBusShowsTheItem) {
    ApplicationStage stage(Panel::absent);
    const XfcePanel panel(stage.display, stage.session);
    stage.session.waitForName("org.kde.StatusNotifierWatcher");
    expectItemOn(panel, stage);
}

// The only connection between the program and a panel on another bus is the X server.
TEST_F(PanelTest, PanelOnAnotherBusEmbedsTheItem) {
    ApplicationStage stage(Panel::absent);
    const PrivateBus busOfItsOwn;
    const XfcePanel panel(stage.display, busOfItsOwn);
    ASSERT_TRUE(waitUntil([&] { return stage.display.hasOwner("_NET_SYSTEM_TRAY_S0"); }));
    expectItemOn(panel, stage);
}

} // namespace
} // namespace glidemap::test
