#include "platform/linux/shell/desktop_gestures.h"

#include "platform/linux/desktop/environment.h"

#include <algorithm>

namespace glidemap {

namespace {

bool isVertical(GestureDirection direction) {
    return direction == GestureDirection::up || direction == GestureDirection::down;
}

// GNOME Shell 43 handles swipes of exactly three fingers; version 48 handles those of three or
// more.
std::string gnomeNote(int fingerCount, const Lang& lang) {
    return fingerCount == 3
               ? lang.choose("GNOME uses this swipe itself and has no setting that turns it off.",
                             "GNOME 自身使用此手势，没有可将其关闭的设置。")
               : lang.choose("Newer versions of GNOME use this swipe themselves and have no "
                             "setting that turns it off.",
                             "较新版本的 GNOME 自身使用此手势，没有可将其关闭的设置。");
}

// KWin 5.27 and 6.3 use swipes of three and four fingers. All of them switch virtual desktops,
// except vertical swipes of four fingers.
std::string plasmaNote(int fingerCount, GestureDirection direction, const Lang& lang) {
    if (fingerCount > 4) {
        return {};
    }
    return fingerCount == 4 && isVertical(direction)
               ? lang.choose("KDE Plasma opens a desktop effect with this swipe: Overview, Desktop "
                             "Grid or Present Windows. Effects are turned off in System Settings → "
                             "Desktop Effects.",
                             "KDE Plasma 用此手势打开桌面特效（概览、桌面网格或展示窗口），"
                             "可在「系统设置 → 桌面特效」中关闭。")
               : lang.choose("KDE Plasma switches virtual desktops with this swipe and has no "
                             "setting that turns it off.",
                             "KDE Plasma 用此手势切换虚拟桌面，没有可将其关闭的设置。");
}

} // namespace

DesktopSession currentDesktopSession() {
    return {splitAtColons(fromEnvironment("XDG_CURRENT_DESKTOP")),
            !fromEnvironment("WAYLAND_DISPLAY").empty()};
}

std::string desktopGestureNote(GestureType gesture, const DesktopSession& session,
                               const Lang& lang) {
    if (category(gesture) != GestureCategory::swipe || fingerCount(gesture) < 3) {
        return {};
    }
    const auto runs = [&](const char* desktop) {
        return std::ranges::find(session.desktops, desktop) != session.desktops.end();
    };
    // These desktops report "GNOME", too, but do not run GNOME Shell.
    const bool isOtherShell = runs("GNOME-Flashback") || runs("Budgie");
    if (runs("GNOME") && !isOtherShell) {
        return gnomeNote(fingerCount(gesture), lang);
    }
    // On X11, KWin handles no touchpad gestures.
    return runs("KDE") && session.isWayland
               ? plasmaNote(fingerCount(gesture), direction(gesture), lang)
               : std::string();
}

} // namespace glidemap
