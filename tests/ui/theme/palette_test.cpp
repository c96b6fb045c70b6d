// Tests that texts and drawings are legible: they have at least the contrast that the Web Content
// Accessibility Guidelines require.
#include "ui/theme/palette.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using ::testing::IsEmpty;

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor laidOver(const QColor& ground, const QColor& tint, double opacity) {
    const auto mix = [opacity](double below, double above) {
        return static_cast<float>(below + (above - below) * opacity);
    };
    return QColor::fromRgbF(mix(ground.redF(), tint.redF()), mix(ground.greenF(), tint.greenF()),
                            mix(ground.blueF(), tint.blueF()));
}

struct Row {
    const char* name;
    Role ink;
    Role ground;
    double least;
    Role tint = Role::window; // drawn over the background
    double opacity = 0;
};

constexpr double text = 4.5;
constexpr double drawing = 3;

// The opacity with which a demonstration's pad is drawn.
constexpr double padOpacity = 0.7;

const Row rows[] = {
    {"text on the window", Role::primary, Role::window, text},
    {"text on a card", Role::primary, Role::card, text},
    {"text on a control", Role::primary, Role::field, text},
    {"an explanation on the window", Role::secondary, Role::window, text},
    {"an explanation on a card", Role::secondary, Role::card, text},
    {"a placeholder in a field", Role::secondary, Role::field, text},
    {"red on the window", Role::red, Role::window, text},
    {"red on a card", Role::red, Role::card, text},
    {"orange on the window", Role::orange, Role::window, text},
    {"orange on a card", Role::orange, Role::card, text},
    {"green on the window", Role::green, Role::window, text},
    {"green on a card", Role::green, Role::card, text},
    {"a link on the window", Role::accent, Role::window, text},
    {"a link on a card", Role::accent, Role::card, text},
    {"a prominent button", Role::onAccent, Role::accentGround, text},
    {"a blue badge on the window", Role::blue, Role::window, text, Role::blue, 0.15},
    {"a blue badge on a card", Role::blue, Role::card, text, Role::blue, 0.15},
    {"a purple badge on the window", Role::purple, Role::window, text, Role::purple, 0.15},
    {"a purple badge on a card", Role::purple, Role::card, text, Role::purple, 0.15},
    {"a blue notice", Role::primary, Role::window, text, Role::blue, 0.1},
    {"an orange notice", Role::primary, Role::window, text, Role::orange, 0.12},
    {"the symbol of a blue notice", Role::blue, Role::window, drawing, Role::blue, 0.1},
    {"the symbol of an orange notice", Role::orange, Role::window, drawing, Role::orange, 0.12},
    {"the edge of a check box", Role::tertiary, Role::window, drawing},
    {"the edge of a check box on a card", Role::tertiary, Role::card, drawing},
    {"a set check box on the window", Role::accentGround, Role::window, drawing},
    {"a set check box on a card", Role::accentGround, Role::card, drawing},
    {"the focus ring on the window", Role::accent, Role::window, drawing},
    {"the focus ring on a card", Role::accent, Role::card, drawing},
};

TEST(PaletteTest, EveryTextAndDrawingHasEnoughContrast) {
    std::vector<std::string> tooFaint;
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        for (const Row& row : rows) {
            const QColor ground =
                laidOver(colorOf(row.ground, scheme), vividColorOf(row.tint, scheme), row.opacity);
            const double reached = contrast(colorOf(row.ink, scheme), ground);
            if (reached < row.least) {
                tooFaint.push_back(std::string(row.name) +
                                   (scheme == ColorScheme::dark ? " in dark: " : " in light: ") +
                                   std::to_string(reached));
            }
        }
    }
    EXPECT_THAT(tooFaint, IsEmpty());
}

TEST(PaletteTest, DemonstrationPadEdgeHasEnoughContrast) {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        const QColor ground = colorOf(Role::card, scheme);
        const QColor edge = laidOver(ground, colorOf(Role::secondary, scheme), padOpacity);
        EXPECT_GE(contrast(edge, ground), drawing);
    }
}

TEST(PaletteTest, ContrastOfBlackOnWhiteIsTwentyOne) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
}

TEST(PaletteTest, LeavesAlternateBaseToTheDesktop) {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        EXPECT_FALSE(paletteOf(scheme).isBrushSet(QPalette::Active, QPalette::AlternateBase));
        EXPECT_TRUE(paletteOf(scheme).isBrushSet(QPalette::Active, QPalette::Window));
    }
}

TEST(PaletteTest, DesktopIsDarkIfAlternateBaseIsBelowHalfBrightness) {
    QPalette palette;
    palette.setColor(QPalette::AlternateBase, QColor(127, 127, 127));
    EXPECT_EQ(desktopSchemeOf(palette), ColorScheme::dark);
    palette.setColor(QPalette::AlternateBase, QColor(128, 128, 128));
    EXPECT_EQ(desktopSchemeOf(palette), ColorScheme::light);
}

} // namespace
} // namespace glidemap
