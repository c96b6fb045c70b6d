// Tests the status item in the real panels of desktops: its icon, its menu, and their updates.
#include "panel_desktop.h"
#include "plasma_desktop.h"
#include "tray_menu.h"
#include "waiting.h"
#include "waybar_desktop.h"
#include "xfce_desktop.h"

#include <gtest/gtest.h>

#include <csignal>
#include <ostream>

namespace glidemap::test {
namespace {

using Lines = std::vector<std::string>;

struct Kind {
    const char* name;
    std::string (*missing)();
    std::unique_ptr<PanelDesktop> (*make)();
};

// GoogleTest calls this function to print the parameter.
void PrintTo(const Kind& kind, std::ostream* stream) {
    *stream << kind.name;
}

template <typename Desktop>
Kind kindOf(const char* name) {
    return {name, Desktop::missing, []() -> std::unique_ptr<PanelDesktop> {
                return std::make_unique<Desktop>();
            }};
}

enum class Icon { none, dark, light };

// The icon has one of two shades, with an edge in the other shade. No panel in these tests has a
// background in either shade.
Icon iconIn(const Picture& panel) {
    constexpr std::size_t least = 20;
    constexpr std::size_t most = 600;
    const auto pixelsOf = [&panel](std::uint32_t shade) {
        const std::size_t count = panel.countOf(shade);
        return count >= least && count <= most ? count : 0;
    };
    const std::size_t dark = pixelsOf(0x2A2A2A);
    const std::size_t light = pixelsOf(0xF4F4F4);
    if (dark == 0 && light == 0) {
        return Icon::none;
    }
    return dark >= light ? Icon::dark : Icon::light;
}

class RealPanelTest : public testing::TestWithParam<Kind> {
protected:
    void SetUp() override {
        if (const std::string missing = GetParam().missing(); !missing.empty()) {
            GTEST_SKIP() << "no " << missing << " is installed";
        }
        desktop = GetParam().make();
    }

    std::unique_ptr<Program> startGlidemap(Environment more = {}) const {
        more["GLIDEMAP_TOUCH_DRIVER"] = GLIDEMAP_STAGED_DRIVER;
        more["XDG_STATE_HOME"] = desktop->home.path() / "state";
        return desktop->start({GLIDEMAP_PROGRAM}, more);
    }

    std::string logText() const { return contentOf(desktop->home.path() / "glidemap.log"); }

    bool waitForIcon(Icon wanted) const {
        return waitUntil([&] { return iconIn(desktop->panel()) == wanted; });
    }

    TrayMenu menu() const {
        EXPECT_TRUE(waitUntil([&] { return desktop->items().size() == 1; })) << logText();
        const auto items = desktop->items();
        return {desktop->session.connection(), items.empty() ? StatusHost::Item{} : items.front()};
    }

    bool waitForMenu(const Lines& entries) const {
        return waitUntil([&] { return describe(menu().open()) == entries; });
    }

    static Lines entries(const std::string& first) {
        return {first, "—", "Settings…", "Check for Updates…", "—", "Quit Glidemap"};
    }

    static std::optional<int> end(Program& program) {
        kill(program.process(), SIGTERM);
        return program.finish();
    }

    std::unique_ptr<PanelDesktop> desktop;
};

TEST_P(RealPanelTest, IconAppearsAndDisappearsWithTheProgram) {
    desktop->startPanel();
    EXPECT_EQ(iconIn(desktop->panel()), Icon::none);
    const auto glidemap = startGlidemap();
    EXPECT_TRUE(waitForIcon(Icon::dark)) << logText();
    EXPECT_EQ(desktop->items().size(), 1U);
    EXPECT_EQ(end(*glidemap), 0);
    EXPECT_TRUE(waitForIcon(Icon::none));
    EXPECT_EQ(desktop->items().size(), 0U);
}

TEST_P(RealPanelTest, MenuEntriesWorkAndTheCheckMarkFollowsTheMasterSwitch) {
    desktop->startPanel();
    const auto glidemap = startGlidemap();
    EXPECT_TRUE(waitForMenu(entries("✓ Enable Gestures")));
    EXPECT_TRUE(menu().choose("Enable Gestures"));
    EXPECT_TRUE(waitForMenu(entries("· Enable Gestures")));
    EXPECT_TRUE(menu().choose("Enable Gestures"));
    EXPECT_TRUE(waitForMenu(entries("✓ Enable Gestures")));
    EXPECT_TRUE(menu().choose("Quit Glidemap"));
    EXPECT_EQ(glidemap->finish(), 0);
    EXPECT_TRUE(waitForIcon(Icon::none));
}

TEST_P(RealPanelTest, MenuIsInTheInterfaceLanguage) {
    desktop->home.write("config/glidemap/glidemap.ini", "[General]\nappLanguage=zh\n");
    desktop->startPanel();
    const auto glidemap = startGlidemap();
    EXPECT_TRUE(waitForMenu({"✓ 启用手势", "—", "设置…", "检查更新…", "—", "退出 Glidemap"}));
    EXPECT_EQ(end(*glidemap), 0);
}

TEST_P(RealPanelTest, PanelThatStartsAfterGlidemapOrRestartsGetsTheItem) {
    const Picture bare = desktop->screen();
    const auto glidemap = startGlidemap();
    // The program searches for a panel before it shows its window, so the panel starts too late for
    // that search.
    ASSERT_TRUE(waitUntil([&] { return desktop->screen().differences(bare) > 10000; }))
        << logText();
    desktop->startPanel();
    EXPECT_TRUE(waitForIcon(Icon::dark)) << logText();
    desktop->killPanel();
    desktop->startPanel();
    EXPECT_TRUE(waitForIcon(Icon::dark)) << logText();
    EXPECT_TRUE(waitForMenu(entries("✓ Enable Gestures")));
    EXPECT_EQ(end(*glidemap), 0);
}

// Unsets the variables that name the desktop, so that Qt uses its plain platform theme. The
// desktop's own theme would read the colour scheme directly, and the test would not cover the
// portal.
TEST_P(RealPanelTest, IconFollowsThePortalColourScheme) {
    desktop->startPanel();
    desktop->choose(ColorScheme::dark);
    const auto glidemap = startGlidemap(
        {{"KDE_FULL_SESSION", ""}, {"KDE_SESSION_VERSION", ""}, {"XDG_CURRENT_DESKTOP", ""}});
    EXPECT_TRUE(waitForIcon(Icon::dark)) << "the icon is not dark: " << logText();
    desktop->startPortal();
    EXPECT_TRUE(waitForIcon(Icon::light)) << logText();
    desktop->choose(ColorScheme::light);
    EXPECT_TRUE(waitForIcon(Icon::dark)) << logText();
    desktop->choose(ColorScheme::dark);
    EXPECT_TRUE(waitForIcon(Icon::light)) << logText();
    EXPECT_EQ(end(*glidemap), 0);
}

INSTANTIATE_TEST_SUITE_P(Desktops, RealPanelTest,
                         testing::Values(kindOf<XfceDesktop>("Xfce"),
                                         kindOf<WaybarDesktop>("Waybar"),
                                         kindOf<PlasmaDesktop>("Plasma")),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace glidemap::test
