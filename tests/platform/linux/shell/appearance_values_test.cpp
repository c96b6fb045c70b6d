#include "platform/linux/shell/appearance_values.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <vector>

namespace glidemap {
namespace {

constexpr const char* common = "org.freedesktop.appearance";
constexpr const char* gnome = "org.gnome.desktop.interface";
constexpr const char* kde = "org.kde.kdeglobals.KDE";
constexpr auto dark = ColorScheme::dark;
constexpr auto light = ColorScheme::light;

struct Setting {
    const char* group;
    const char* key;
    const char* value; // in GLib's text format
};

std::ostream& operator<<(std::ostream& out, const Setting& setting) {
    return out << setting.group << ' ' << setting.key << ' ' << setting.value;
}

void take(AppearanceValues& values, const Setting& setting) {
    GVariant* const value = g_variant_ref_sink(g_variant_new_parsed(setting.value));
    values.take(setting.group, setting.key, value);
    g_variant_unref(value);
}

Appearance after(const std::vector<Setting>& settings) {
    AppearanceValues values;
    for (const Setting& setting : settings) {
        take(values, setting);
    }
    return values.appearance();
}

TEST(AppearanceValuesTest, ValuesAreUnknownInitially) {
    EXPECT_EQ(after({}).colorScheme, std::nullopt);
    EXPECT_FALSE(after({}).reducesMotion);
}

TEST(AppearanceValuesTest, ParsesColorSchemes) {
    struct Row {
        const char* value;
        std::optional<ColorScheme> scheme;
    };
    const Row rows[] = {
        {"uint32 0", std::nullopt},    {"uint32 1", dark},       {"uint32 2", light},
        {"uint32 3", std::nullopt},    {"<uint32 1>", dark},     {"<<uint32 2>>", light},
        {"1", std::nullopt},           {"'1'", std::nullopt},    {"true", std::nullopt},
        {"(uint32 1,)", std::nullopt}, {"@av []", std::nullopt},
    };
    for (const Row& row : rows) {
        const Setting setting{common, "color-scheme", row.value};
        EXPECT_EQ(after({setting}).colorScheme, row.scheme) << setting;
        // The value replaces an earlier value, too.
        EXPECT_EQ(after({{common, "color-scheme", "uint32 1"}, setting}).colorScheme, row.scheme)
            << setting;
        EXPECT_FALSE(after({setting}).reducesMotion) << setting;
    }
}

TEST(AppearanceValuesTest, AnyDesktopSettingCanReduceMotion) {
    struct Row {
        Setting setting;
        bool reduces;
    };
    const Row rows[] = {
        {{common, "reduced-motion", "uint32 0"}, false},
        {{common, "reduced-motion", "uint32 1"}, true},
        {{common, "reduced-motion", "<uint32 1>"}, true},
        {{common, "reduced-motion", "uint32 2"}, false},
        {{common, "reduced-motion", "true"}, false},
        {{gnome, "enable-animations", "true"}, false},
        {{gnome, "enable-animations", "false"}, true},
        {{gnome, "enable-animations", "<false>"}, true},
        {{gnome, "enable-animations", "uint32 0"}, false},
        {{kde, "AnimationDurationFactor", "'0'"}, true},
        {{kde, "AnimationDurationFactor", "'0.0'"}, true},
        {{kde, "AnimationDurationFactor", "<'0'>"}, true},
        {{kde, "AnimationDurationFactor", "0.0"}, true},
        {{kde, "AnimationDurationFactor", "'1'"}, false},
        {{kde, "AnimationDurationFactor", "'0.01'"}, false},
        {{kde, "AnimationDurationFactor", "0.5"}, false},
        {{kde, "AnimationDurationFactor", "''"}, false},
        {{kde, "AnimationDurationFactor", "'off'"}, false},
        {{kde, "AnimationDurationFactor", "'0x'"}, false},
        {{kde, "AnimationDurationFactor", "false"}, false},
    };
    for (const auto& [setting, reduces] : rows) {
        EXPECT_EQ(after({setting}).reducesMotion, reduces) << setting;
        EXPECT_EQ(after({setting}).colorScheme, std::nullopt) << setting;
    }
}

TEST(AppearanceValuesTest, ReducedMotionOfOneSettingOutweighsFullMotionOfAnother) {
    EXPECT_TRUE(after({{gnome, "enable-animations", "false"},
                       {common, "reduced-motion", "uint32 0"},
                       {kde, "AnimationDurationFactor", "'1'"}})
                    .reducesMotion);
    EXPECT_FALSE(
        after({{gnome, "enable-animations", "false"}, {gnome, "enable-animations", "true"}})
            .reducesMotion);
}

TEST(AppearanceValuesTest, IgnoresUnknownKeysAndKeysInTheWrongGroup) {
    for (const Setting& setting : {
             Setting{gnome, "color-scheme", "uint32 1"},
             Setting{common, "color-schemes", "uint32 1"},
             Setting{common, "enable-animations", "false"},
             Setting{kde, "enable-animations", "false"},
             Setting{gnome, "AnimationDurationFactor", "'0'"},
             Setting{kde, "reduced-motion", "uint32 1"},
             Setting{"", "", "uint32 1"},
         }) {
        EXPECT_EQ(after({setting}), Appearance()) << setting;
    }
}

} // namespace
} // namespace glidemap
