// Tests the status item and its menu, as a panel reads them.
#include "application_test_base.h"
#include "variant.h"

#include <csignal>

namespace glidemap::test {
namespace {

using Lines = std::vector<std::string>;

class StatusItemTest : public ApplicationTest {
protected:
    static OwnedVariant propertyOf(const ApplicationStage& stage, const char* name) {
        const StatusHost::Item item = stage.panel->items().at(0);
        return property(stage.session.connection(),
                        {item.busName, item.path, "org.kde.StatusNotifierItem"}, name);
    }
};

TEST_F(StatusItemTest, ItemHasANameAndAnIcon) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(waitUntil([&] { return !stage.panel->items().empty(); }));
    EXPECT_EQ(textOf(propertyOf(stage, "Status")), "Active");
    EXPECT_EQ(textOf(propertyOf(stage, "Title")), "Glidemap");
    const OwnedVariant picture = propertyOf(stage, "IconPixmap");
    ASSERT_NE(picture, nullptr);
    EXPECT_TRUE(!textOf(propertyOf(stage, "IconName")).empty() ||
                g_variant_n_children(picture.get()) > 0);
    const OwnedVariant help = propertyOf(stage, "ToolTip");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(textOf(childOf(help, 2)), "Glidemap");
}

TEST_F(StatusItemTest, MenuIsInTheInterfaceLanguage) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    EXPECT_EQ(
        describe(glidemap.menu().open()),
        (Lines{"✓ Enable Gestures", "—", "Settings…", "Check for Updates…", "—", "Quit Glidemap"}));
    glidemap.end(SIGTERM);
    stage.home.write("config/glidemap/glidemap.ini", "[General]\nappLanguage=zh\n");
    ASSERT_TRUE(waitUntil([&] { return stage.panel->items().empty(); }));
    RunningGlidemap again(stage);
    EXPECT_EQ(describe(again.menu().open()),
              (Lines{"✓ 启用手势", "—", "设置…", "检查更新…", "—", "退出 Glidemap"}));
}

TEST_F(StatusItemTest, CheckMarkFollowsTheMasterSwitch) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    EXPECT_TRUE(glidemap.menu().choose("Enable Gestures"));
    EXPECT_TRUE(waitUntil([&] { return !glidemap.menu().open().at(0).checked; }));
    EXPECT_TRUE(waitUntil([&] { return !glidemap.waitFor("check box", "Enabled").isChecked(); }));
    EXPECT_TRUE(glidemap.menu().choose("Enable Gestures"));
    EXPECT_TRUE(waitUntil([&] { return glidemap.menu().open().at(0).checked; }));
    EXPECT_TRUE(waitUntil([&] { return glidemap.waitFor("check box", "Enabled").isChecked(); }));
}

TEST_F(StatusItemTest, QuitEntryEndsTheProgramCleanly) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    EXPECT_TRUE(glidemap.menu().choose("Quit Glidemap"));
    EXPECT_EQ(glidemap.waitForEnd(), 0);
}

TEST_F(StatusItemTest, PanelThatStartsAfterGlidemapGetsTheItem) {
    ApplicationStage stage(Panel::absent);
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    stage.showPanel();
    EXPECT_FALSE(describe(glidemap.menu().open()).empty());
}

TEST_F(StatusItemTest, RestartedPanelGetsTheItemAgain) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    stage.panel.reset();
    stage.showPanel();
    EXPECT_FALSE(describe(glidemap.menu().open()).empty());
}

TEST_F(StatusItemTest, MissingPanelIsReportedOnceAndASecondLaunchShowsTheWindow) {
    constexpr const char* message = "This desktop has no status bar";
    ApplicationStage stage(Panel::absent);
    RunningGlidemap first(stage);
    ASSERT_TRUE(first.waitForWindow());
    first.waitFor("label", message);
    first.click("push button", "OK");
    EXPECT_TRUE(first.waitUntilGone("label", message));
    stage.display.close(*first.window());
    ASSERT_TRUE(waitUntil([&] { return !first.window(); }));
    RunningGlidemap second(stage);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_TRUE(first.waitForWindow());
    EXPECT_FALSE(first.find("label", message));
    stage.hands.press("Ctrl+Q");
    EXPECT_EQ(first.waitForEnd(), 0);
}

} // namespace
} // namespace glidemap::test
