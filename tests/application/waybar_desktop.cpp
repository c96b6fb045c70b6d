#include "waybar_desktop.h"

#include "waiting.h"

#include <gtest/gtest.h>

namespace glidemap::test {

namespace {

constexpr int height = 32;

constexpr const char* settingsText = R"({
    "layer": "top", "position": "top", "height": 32,
    "modules-right": ["tray"], "tray": {"icon-size": 22}
})";

// The icon is grey, so the background is blue.
constexpr const char* styleText = "window#waybar { background: #336699; }\n";

} // namespace

std::string WaybarDesktop::missing() {
    for (const char* const program : {"sway", "swaymsg", "grim", "waybar"}) {
        if (!test::isInstalled(program)) {
            return program;
        }
    }
    return {};
}

Environment WaybarDesktop::environment() const {
    Environment values = sway.environment();
    for (const auto& [name, value] : plainEnvironment(home.path())) {
        if (name != "XDG_RUNTIME_DIR") { // keeps sway's folder, which contains its socket
            values[name] = value;
        }
    }
    values["GDK_BACKEND"] = "wayland";
    values["QT_QPA_PLATFORM"] = "wayland";
    values["XDG_CURRENT_DESKTOP"] = "sway";
    return values;
}

void WaybarDesktop::startPanel() {
    bar = start({"waybar", "--config", home.write("waybar.json", settingsText), "--style",
                 home.write("waybar.css", styleText)});
    EXPECT_TRUE(waitUntil([this] { return watcherHasHost(); }))
        << "the panel accepts no items; its log:\n"
        << contentOf(home.path() / "waybar.log");
}

Picture WaybarDesktop::screen() const {
    const std::filesystem::path file = home.path() / "screen.png";
    run({"grim", file});
    return Picture(file);
}

Picture WaybarDesktop::panel() const {
    const Picture all = screen();
    return all.part({0, 0, all.width(), height});
}

void WaybarDesktop::choose(ColorScheme scheme) const {
    chooseForGtk(*this, scheme == ColorScheme::dark);
}

} // namespace glidemap::test
