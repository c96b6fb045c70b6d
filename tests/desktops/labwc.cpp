#include "desktops/labwc.h"

namespace glidemap::test {

namespace {

// labwc runs the command when clients can connect. The command writes to labwc's output.
constexpr const char* printDisplay = R"(sh -c "echo \$WAYLAND_DISPLAY")";

Program::Command labwcIn(const RuntimeFolder& folder) {
    Environment environment = plainEnvironment(folder.path());
    environment["WLR_BACKENDS"] = "headless";
    environment["WLR_LIBINPUT_NO_DEVICES"] = "1";
    environment["WLR_RENDERER"] = "pixman";
    return {.words = {"labwc", "--startup", printDisplay},
            .environment = environment,
            .log = folder.path() / "labwc.log",
            .user = Program::User::notRoot};
}

} // namespace

Labwc::Labwc()
    : folder(plainUser()), settings(plainEnvironment(folder.path())), program(labwcIn(folder)) {
    settings["WAYLAND_DISPLAY"] = program.nextLine().value_or("");
    folder.giveToTest();
}

} // namespace glidemap::test
