#include "stage.h"

namespace glidemap::application {

namespace {

constexpr const char* busLauncher = "/usr/libexec/at-spi-bus-launcher";

desktops::Program::Command launcherIn(const desktops::RuntimeFolder& folder,
                                      const std::string& display, const std::string& bus) {
    desktops::Environment environment = desktops::plainEnvironment(folder.path());
    environment["DISPLAY"] = display;
    environment["DBUS_SESSION_BUS_ADDRESS"] = bus;
    return {.words = {busLauncher, "--launch-immediately"},
            .environment = environment,
            .log = folder.path() / "accessibility.log"};
}

} // namespace

bool Stage::isInstalled() {
    return XDisplay::isInstalled() && std::filesystem::exists(busLauncher);
}

Stage::Stage(Panel present)
    : display(home), hands(display), fingers(home.path() / "fingers"),
      accessibility(session, launcherIn(home, display.name(), session.address())) {
    if (present == Panel::present) {
        showPanel();
    }
}

void Stage::showPanel() {
    panel = std::make_unique<StatusHost>(session.address());
}

desktops::Environment Stage::environment() const {
    desktops::Environment environment = desktops::plainEnvironment(home.path());
    environment["DBUS_SESSION_BUS_ADDRESS"] = session.address();
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = system.address();
    environment["DISPLAY"] = display.name();
    environment["GLIDEMAP_STAGED_FINGERS"] = fingers.pipe();
    environment["GLIDEMAP_TOUCH_DRIVER"] = GLIDEMAP_STAGED_DRIVER;
    environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
    environment["XDG_STATE_HOME"] = home.path() / "state";
    return environment;
}

desktops::Program::Command Stage::command() const {
    return {.words = {GLIDEMAP_PROGRAM}, .environment = environment(), .log = complaintsFile()};
}

std::filesystem::path Stage::bindingsFile() const {
    return home.path() / "data/Glidemap/bindings.json";
}

std::filesystem::path Stage::settingsFile() const {
    return home.path() / "config/glidemap/glidemap.ini";
}

std::filesystem::path Stage::complaintsFile() const {
    return home.path() / "glidemap.log";
}

} // namespace glidemap::application
