#include "platform/linux/session/screen_savers.h"

namespace glidemap {

std::span<const ScreenSaver> screenSavers() {
    static constexpr ScreenSaver all[] = {
        {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"},
        {"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver", true},
        {"org.mate.ScreenSaver", "/org/mate/ScreenSaver"},
        {"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"},
        {"org.freedesktop.ScreenSaver", "/ScreenSaver"},
    };
    return all;
}

} // namespace glidemap
