#include "desktops/sway.h"

#include <gtest/gtest.h>

#include <sstream>

namespace glidemap::test {

namespace {

// sway runs the `exec` command when clients can connect; the command writes to sway's output. sway
// starts no bar (`swaybar_command true`), because it may run as a different user than the test's
// bus. A test that needs the bar starts the bar itself, on that bus.
constexpr const char* config = R"(xwayland disable
seat seat0 fallback true
bar {
    id bar-0
    swaybar_command true
}
exec echo $WAYLAND_DISPLAY $SWAYSOCK
)";

Program::Command swayIn(const RuntimeFolder& folder) {
    Environment environment = plainEnvironment(folder.path());
    environment["WLR_BACKENDS"] = "headless";
    environment["WLR_LIBINPUT_NO_DEVICES"] = "1";
    environment["WLR_RENDERER"] = "pixman";
    return {.words = {"sway", "--config", folder.write("config", config)},
            .environment = environment,
            .log = folder.path() / "sway.log",
            .user = Program::User::notRoot};
}

} // namespace

Sway::Sway()
    : folder(plainUser()), settings(plainEnvironment(folder.path())), program(swayIn(folder)) {
    std::istringstream names(program.nextLine().value_or(""));
    names >> settings["WAYLAND_DISPLAY"] >> settings["SWAYSOCK"];
    folder.giveToTest();
}

void Sway::command(const std::string& text) const {
    Program messenger({.words = {"swaymsg", "--quiet", text},
                       .environment = settings,
                       .log = folder.path() / "swaymsg.log"});
    EXPECT_EQ(messenger.finish(), 0) << text;
}

} // namespace glidemap::test
