#include "cocoa_test.h"
#include "platform/macos/appearance/macos_appearance.h"

#include <memory>

namespace glidemap {
namespace {

using test::changeAppearance;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* light = "NSAppearanceNameAqua";
constexpr const char* dark = "NSAppearanceNameDarkAqua";

const std::string match =
    "bestMatchFromAppearancesWithNames NSAppearanceNameAqua NSAppearanceNameDarkAqua";
const std::string motion = "accessibilityDisplayShouldReduceMotion";

class MacosAppearanceTest : public CocoaTest {
protected:
    // Records the appearance at the two notifications: before and after each change.
    Subscription follow(AppearanceSettings& settings) {
        return settings.changes().subscribe([this, &settings] { notify("before", settings); },
                                            [this, &settings] { notify("after", settings); });
    }

    void notify(const std::string& when, const AppearanceSettings& settings) {
        const auto scheme = settings.colorScheme();
        announced.push_back(when +
                            (!scheme                         ? " unknown"
                             : *scheme == ColorScheme::light ? " light"
                                                             : " dark") +
                            (settings.reducesMotion() ? " still" : " moving"));
    }

    Lines announced;
};

TEST_F(MacosAppearanceTest, AddsObserverBeforeReadingValues) {
    const MacosAppearance appearance;
    EXPECT_THAT(journal(), ElementsAre("addObserverForName NSWorkspaceAccessibilityDisplayOptions"
                                       "DidChangeNotification",
                                       match, motion));
}

TEST_F(MacosAppearanceTest, ReportsThatTheSystemShowsNativeSheets) {
    EXPECT_TRUE(MacosAppearance().showsSheets());
}

TEST_F(MacosAppearanceTest, ColorSchemeMatchesTheApplicationsAppearance) {
    struct Row {
        std::optional<std::string> bestMatch;
        std::optional<ColorScheme> scheme;
    };
    const Row rows[] = {
        {light, ColorScheme::light},
        {dark, ColorScheme::dark},
        {std::nullopt, std::nullopt},
    };
    for (const Row& row : rows) {
        test::startWithAppearance(row.bestMatch);
        EXPECT_EQ(MacosAppearance().colorScheme(), row.scheme);
    }
}

TEST_F(MacosAppearanceTest, ReadsTheReduceMotionSetting) {
    EXPECT_FALSE(MacosAppearance().reducesMotion());
    test::workspace().reducesMotion = true;
    EXPECT_TRUE(MacosAppearance().reducesMotion());
}

TEST_F(MacosAppearanceTest, FollowsTheApplicationsAppearance) {
    test::startWithAppearance(light);
    MacosAppearance appearance;
    const Subscription following = follow(appearance);
    changeAppearance(dark);
    changeAppearance(std::nullopt);
    changeAppearance(light);
    EXPECT_THAT(announced,
                ElementsAre("before light moving", "after dark moving", "before dark moving",
                            "after unknown moving", "before unknown moving", "after light moving"));
}

TEST_F(MacosAppearanceTest, FollowsTheReduceMotionSetting) {
    test::startWithAppearance(dark);
    MacosAppearance appearance;
    const Subscription following = follow(appearance);
    test::setReducesMotion(true);
    test::setReducesMotion(false);
    EXPECT_THAT(announced, ElementsAre("before dark moving", "after dark still",
                                       "before dark still", "after dark moving"));
}

TEST_F(MacosAppearanceTest, NotifiesOnlyForChangedValues) {
    test::startWithAppearance(dark);
    MacosAppearance appearance;
    const Subscription following = follow(appearance);
    changeAppearance(dark);
    test::setReducesMotion(false);
    test::activate(std::nullopt);
    EXPECT_THAT(announced, IsEmpty());
}

TEST_F(MacosAppearanceTest, IgnoresNotificationsAfterDestruction) {
    auto appearance = std::make_unique<MacosAppearance>();
    journal();
    appearance.reset();
    changeAppearance(dark);
    test::setReducesMotion(true);
    EXPECT_THAT(journal(), ElementsAre("removeObserver"));
    EXPECT_EQ(test::forgetObservations(), 0U);
}

TEST_F(MacosAppearanceTest, MotionIsNotReducedWithoutAWorkspace) {
    test::workspace().exists = false;
    test::startWithAppearance(dark);
    MacosAppearance appearance;
    EXPECT_FALSE(appearance.reducesMotion());
    changeAppearance(light);
    EXPECT_EQ(appearance.colorScheme(), ColorScheme::light);
}

} // namespace
} // namespace glidemap
