#include "xfce_panel.h"

#include "service_program.h"
#include "waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace glidemap::test {

namespace {

constexpr const char* settingsName = "org.xfce.Xfconf";
constexpr const char* settingsFile = "config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml";

// One panel at the upper edge, which contains only the notification area. Its background is blue,
// because the icon is grey.
constexpr const char* settingsText = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="32"/>
      <property name="background-style" type="uint" value="1"/>
      <property name="background-rgba" type="array">
        <value type="double" value="0.2"/>
        <value type="double" value="0.4"/>
        <value type="double" value="0.6"/>
        <value type="double" value="1"/>
      </property>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

std::optional<ManagedWindow> panelOn(const XDisplay& display) {
    const std::vector<ManagedWindow> all = display.windows();
    const auto found = std::find_if(all.begin(), all.end(), [](const ManagedWindow& each) {
        return each.className == "Xfce4-panel";
    });
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

} // namespace

bool XfcePanel::isInstalled() {
    return test::isInstalled("xfce4-panel") && isServiceInstalled(settingsName);
}

XfcePanel::XfcePanel(const XDisplay& shown, const PrivateBus& bus)
    : display(shown), busAddress(bus.address()) {
    folder.write(settingsFile, settingsText);
    settings = std::make_unique<Program>(command({serviceProgram(settingsName)}));
    bus.waitForName(settingsName);
    program = std::make_unique<Program>(
        command({"xfce4-panel", "--disable-wm-check", "--sm-client-disable"}));
    EXPECT_TRUE(waitUntil([this] { return panelOn(display).has_value(); }))
        << "the panel does not start; its log:\n"
        << contentOf(folder.path() / "panel.log");
}

Program::Command XfcePanel::command(std::vector<std::string> words) const {
    Environment environment = plainEnvironment(folder.path());
    environment["DBUS_SESSION_BUS_ADDRESS"] = busAddress;
    environment["DISPLAY"] = display.name();
    environment.emplace("NO_AT_BRIDGE", "1"); // the panel itself needs no accessibility
    return {
        .words = std::move(words), .environment = environment, .log = folder.path() / "panel.log"};
}

Rectangle XfcePanel::area() const {
    const auto panel = panelOn(display);
    return panel ? panel->content : Rectangle{};
}

} // namespace glidemap::test
