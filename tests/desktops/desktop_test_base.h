// The fixture of the desktop tests. It starts one desktop, and gives this process the environment
// of the desktop's programs. If the desktop is not installed, the test is skipped.
#pragma once

#include "desktop_kinds.h"
#include "desktops/application_folder.h"
#include "desktops/scoped_environment.h"
#include "variant.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace glidemap::test {

// Returns only the variables that locate the desktop and its buses.
inline std::map<std::string, std::string> sessionVariablesIn(const Environment& desktop) {
    std::map<std::string, std::string> values;
    for (const char* const name : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS", "DISPLAY",
                                   "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "XDG_RUNTIME_DIR"}) {
        const auto found = desktop.find(name);
        values[name] = found != desktop.end() ? found->second : "";
    }
    return values;
}

class DesktopTest : public testing::TestWithParam<DesktopKind> {
protected:
    void SetUp() override {
        if (const auto missing = GetParam().missing()) {
            GTEST_SKIP() << "no " << *missing << " is installed";
        }
        folder.clear();
        desktop = GetParam().start();
        here.emplace(sessionVariablesIn(desktop->environment()));
    }

    // Starts a program and waits until its window is on the screen.
    std::unique_ptr<Program> open(const std::string& application,
                                  const std::string& title = "Title") const {
        Environment environment = desktop->environment();
        auto program = std::make_unique<Program>(Program::Command{
            .words = {desktop->windowProgram(), application, title},
            .environment = environment,
            .log = std::filesystem::path(environment.at("XDG_RUNTIME_DIR")) / "window.log"});
        EXPECT_EQ(program->nextLine(), "shown");
        return program;
    }

    bool isOnBus(const char* name) const {
        const OwnedVariant answer =
            call(desktop->bus().connection(),
                 {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"},
                 "NameHasOwner", g_variant_new("(s)", name));
        return g_variant_get_boolean(childOf(answer, 0).get()) != FALSE;
    }

    ApplicationFolder& folder = ApplicationFolder::instance();
    std::unique_ptr<Desktop> desktop;
    std::optional<ScopedEnvironment> here;
};

inline std::string nameOf(const testing::TestParamInfo<DesktopKind>& kind) {
    return kind.param.name;
}

} // namespace glidemap::test
