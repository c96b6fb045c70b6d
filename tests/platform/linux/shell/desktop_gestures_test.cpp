#include "platform/linux/shell/desktop_gestures.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glidemap {
namespace {

using enum GestureType;

const DesktopSession gnome{.desktops = {"ubuntu", "GNOME"}, .isWayland = true};
const DesktopSession plasma{.desktops = {"KDE"}, .isWayland = true};
const DesktopSession plasmaOnX11{.desktops = {"KDE"}, .isWayland = false};

std::string note(GestureType gesture, const DesktopSession& session, const char* code = "en") {
    Lang lang{nullptr};
    lang.setCode(code);
    return desktopGestureNote(gesture, session, lang);
}

TEST(DesktopGestures, GnomeNoteSaysSwipesCannotBeDisabled) {
    for (const GestureType gesture :
         {threeFingerSwipeLeft, threeFingerSwipeRight, threeFingerSwipeUp, threeFingerSwipeDown}) {
        EXPECT_EQ(note(gesture, gnome),
                  "GNOME uses this swipe itself and has no setting that turns it off.");
        EXPECT_EQ(note(gesture, gnome, "zh"), "GNOME 自身使用此手势，没有可将其关闭的设置。");
    }
    for (const GestureType gesture : {fourFingerSwipeUp, fiveFingerSwipeLeft}) {
        EXPECT_EQ(note(gesture, gnome), "Newer versions of GNOME use this swipe themselves and "
                                        "have no setting that turns it off.");
        EXPECT_EQ(note(gesture, gnome, "zh"),
                  "较新版本的 GNOME 自身使用此手势，没有可将其关闭的设置。");
    }
}

TEST(DesktopGestures, PlasmaNoteNamesTheSettingOnlyForSwipesThatOpenAnEffect) {
    for (const GestureType gesture : {fourFingerSwipeUp, fourFingerSwipeDown}) {
        EXPECT_EQ(note(gesture, plasma),
                  "KDE Plasma opens a desktop effect with this swipe: Overview, Desktop Grid or "
                  "Present Windows. Effects are turned off in System Settings → Desktop Effects.");
        EXPECT_EQ(note(gesture, plasma, "zh"),
                  "KDE Plasma 用此手势打开桌面特效（概览、桌面网格或展示窗口），"
                  "可在「系统设置 → 桌面特效」中关闭。");
    }
    for (const GestureType gesture :
         {threeFingerSwipeLeft, threeFingerSwipeRight, threeFingerSwipeUp, threeFingerSwipeDown,
          fourFingerSwipeLeft, fourFingerSwipeRight}) {
        EXPECT_EQ(note(gesture, plasma), "KDE Plasma switches virtual desktops with this swipe and "
                                         "has no setting that turns it off.");
        EXPECT_EQ(note(gesture, plasma, "zh"),
                  "KDE Plasma 用此手势切换虚拟桌面，没有可将其关闭的设置。");
    }
    EXPECT_EQ(note(fiveFingerSwipeUp, plasma), "");
}

TEST(DesktopGestures, OnlySwipesWithMoreThanTwoFingersHaveANote) {
    for (const GestureType gesture : allGestureTypes) {
        if (category(gesture) != GestureCategory::swipe || fingerCount(gesture) == 2) {
            EXPECT_EQ(note(gesture, gnome), "") << rawValue(gesture);
            EXPECT_EQ(note(gesture, plasma), "") << rawValue(gesture);
        }
    }
}

TEST(DesktopGestures, DesktopsOtherThanGNOMEAndPlasmaOnWaylandHaveNoNote) {
    for (const std::vector<std::string>& desktops : {std::vector<std::string>{},
                                                     {"XFCE"},
                                                     {"sway"},
                                                     {"X-Cinnamon"},
                                                     {"GNOME-Flashback", "GNOME"},
                                                     {"Budgie", "GNOME"}}) {
        for (const GestureType gesture : allGestureTypes) {
            EXPECT_EQ(note(gesture, {.desktops = desktops, .isWayland = true}), "");
        }
    }
    EXPECT_EQ(note(threeFingerSwipeLeft, plasmaOnX11), "");
}

} // namespace
} // namespace glidemap
