#include "ui/theme/palette.h"
#include "ui/theme/theme.h"

#include <gmock/gmock.h>

#include <QApplication>

namespace glidemap {
namespace {

// Without settings, the appearance is derived from the desktop's palette. Other tests pin the
// appearance.
class ThemeTest : public testing::Test {
protected:
    ThemeTest() { theme.pin({}); }
    ~ThemeTest() override {
        changeDesktop(Qt::white);
        QApplication::setFont(before);
        theme.pin(ColorScheme::light);
    }

    // Replaces all colours of the application at once, as a desktop does.
    static void changeDesktop(const QColor& ground) {
        QPalette palette;
        palette.setColor(QPalette::AlternateBase, ground);
        palette.setColor(QPalette::Window, ground);
        QApplication::setPalette(palette);
    }

    Theme& theme = Theme::shared();
    const QFont before = QApplication::font();
};

TEST_F(ThemeTest, FollowsTheDesktopPaletteAtRunTime) {
    changeDesktop(Qt::black);
    EXPECT_TRUE(theme.isDark());
    changeDesktop(Qt::white);
    EXPECT_FALSE(theme.isDark());
}

TEST_F(ThemeTest, ApplicationKeepsOurPaletteAfterADesktopChange) {
    changeDesktop(Qt::black);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              colorOf(Role::window, ColorScheme::dark));
}

TEST_F(ThemeTest, FollowsTheDesktopFontAtRunTime) {
    const int usual = theme.font(TextStyle::caption).pixelSize();
    int announced = 0;
    const Subscription toTheme = theme.changes().subscribe({}, [&] { ++announced; });
    QFont large = before;
    large.setPixelSize(28);
    QApplication::setFont(large);
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(theme.font(TextStyle::body).pixelSize(), 28);
    EXPECT_EQ(theme.font(TextStyle::caption).pixelSize(), 24);
    EXPECT_EQ(QApplication::font(), theme.font(TextStyle::body));
    QApplication::setFont(before);
    EXPECT_EQ(theme.font(TextStyle::caption).pixelSize(), usual);
}

TEST_F(ThemeTest, PinnedAppearanceOverridesTheDesktop) {
    theme.pin(ColorScheme::light);
    changeDesktop(Qt::black);
    EXPECT_FALSE(theme.isDark());
    theme.pin({});
    EXPECT_TRUE(theme.isDark());
}

TEST_F(ThemeTest, NotifiesOncePerChangeAfterTheColoursHaveChanged) {
    std::vector<QColor> seen;
    const Subscription toTheme =
        theme.changes().subscribe({}, [&] { seen.push_back(theme.color(Role::window)); });
    theme.pin(ColorScheme::dark);
    changeDesktop(Qt::black);
    theme.pinReducedMotion(true);
    theme.pinReducedMotion(false);
    const QColor dark = colorOf(Role::window, ColorScheme::dark);
    EXPECT_EQ(seen, (std::vector<QColor>{dark, dark, dark, dark}));
}

TEST_F(ThemeTest, ColorsHaveTheRequestedOpacity) {
    EXPECT_NEAR(theme.color(Role::blue, 0.15).alphaF(), 0.15, 0.001);
    EXPECT_NEAR(theme.tint(Role::orange, 0.12).alphaF(), 0.12, 0.001);
}

} // namespace
} // namespace glidemap
