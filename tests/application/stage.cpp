#include "stage.h"

namespace glidemap::test {

namespace {

constexpr const char* busLauncher = "/usr/libexec/at-spi-bus-launcher";

Program::Command launcherIn(const RuntimeFolder& folder, const std::string& display,
                            const std::string& bus) {
    Environment environment = plainEnvironment(folder.path());
    environment["DISPLAY"] = display;
    environment["DBUS_SESSION_BUS_ADDRESS"] = bus;
    return {.words = {busLauncher, "--launch-immediately"},
            .environment = environment,
            .log = folder.path() / "accessibility.log"};
}

} // namespace

bool ApplicationStage::isInstalled() {
    return XDisplay::isInstalled() && std::filesystem::exists(busLauncher);
}

ApplicationStage::ApplicationStage(Panel present)
    : display(home), hands(display), fingers(home.path() / "fingers"),
      accessibility(session, launcherIn(home, display.name(), session.address())) {
    if (present == Panel::present) {
        showPanel();
    }
}

void ApplicationStage::showPanel() {
    panel = std::make_unique<StatusHost>(session.address());
}

Environment ApplicationStage::environment() const {
    Environment environment = plainEnvironment(home.path());
    environment["DBUS_SESSION_BUS_ADDRESS"] = session.address();
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = system.address();
    environment["DISPLAY"] = display.name();
    environment["GLIDEMAP_STAGED_FINGERS"] = fingers.pipe();
    environment["GLIDEMAP_TOUCH_DRIVER"] = GLIDEMAP_STAGED_DRIVER;
    environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
    environment["XDG_STATE_HOME"] = home.path() / "state";
    return environment;
}

Program::Command ApplicationStage::command() const {
    return {.words = {GLIDEMAP_PROGRAM}, .environment = environment(), .log = complaintsFile()};
}

std::filesystem::path ApplicationStage::bindingsFile() const {
    return home.path() / "data/Glidemap/bindings.json";
}

std::filesystem::path ApplicationStage::settingsFile() const {
    return home.path() / "config/glidemap/glidemap.ini";
}

std::filesystem::path ApplicationStage::complaintsFile() const {
    return home.path() / "glidemap.log";
}

} // namespace glidemap::test
