#include "platform/linux/session/screen_savers.h"

#include "platform/linux/desktop/environment.h"

#include <algorithm>
#include <array>

namespace glidemap {

namespace {

bool names(std::string_view currentDesktop, const char* wanted) {
    return std::ranges::count(splitAtColons(currentDesktop), wanted) > 0;
}

int distanceFrom(const ScreenSaver& saver, std::string_view currentDesktop) {
    constexpr int ofAny = 1;
    constexpr int ofAnother = 2;
    if (saver.desktop == nullptr) {
        return ofAny;
    }
    return names(currentDesktop, saver.desktop) ? 0 : ofAnother;
}

} // namespace

std::span<const ScreenSaver> screenSavers() {
    static constexpr auto all = std::to_array<ScreenSaver>({
        {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "GNOME"},
        {"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver", "X-Cinnamon", true},
        {"org.mate.ScreenSaver", "/org/mate/ScreenSaver", "MATE"},
        {"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver", "XFCE"},
        {"org.freedesktop.ScreenSaver", "/ScreenSaver"},
    });
    return all;
}

std::vector<ScreenSaver> screenSaversFor(std::string_view currentDesktop) {
    std::vector<ScreenSaver> all(screenSavers().begin(), screenSavers().end());
    if (currentDesktop.empty()) {
        return all;
    }
    std::ranges::stable_sort(
        all, {}, [&](const ScreenSaver& saver) { return distanceFrom(saver, currentDesktop); });
    return all;
}

bool belongsTo(const ScreenSaver& saver, std::string_view currentDesktop) {
    return currentDesktop.empty() || saver.desktop == nullptr ||
           names(currentDesktop, saver.desktop);
}

} // namespace glidemap
