#include "wayland_desktops.h"

#include "desktops/gnome_shell.h"
#include "desktops/kwin.h"
#include "desktops/labwc.h"
#include "desktops/sway.h"
#include "desktops/wlr_activation.h"
#include "variant.h"
#include "waiting.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace glidemap::test {

namespace {

class WaylandDesktop : public Desktop {
public:
    std::string windowProgram() const override { return GLIDEMAP_TEST_WINDOW; }
};

bool isTrue(const OwnedVariant& value) {
    return value != nullptr && g_variant_is_of_type(value.get(), G_VARIANT_TYPE_BOOLEAN) != FALSE &&
           g_variant_get_boolean(value.get()) != FALSE;
}

// A desktop whose compositor lists its windows through a Wayland protocol and needs no bus.
template <typename Compositor>
class WlrootsDesktop : public WaylandDesktop {
public:
    Environment environment() const override {
        Environment values = compositor.environment();
        values["DBUS_SESSION_BUS_ADDRESS"] = session.address();
        values["DBUS_SYSTEM_BUS_ADDRESS"] = system.address();
        return values;
    }

    const PrivateBus& bus() const override { return session; }

    void activate(const std::string& application) override {
        activateOnWlroots(compositor.environment(), application);
    }

    void minimize(const std::string& application) override {
        minimizeOnWlroots(compositor.environment(), application);
    }

private:
    PrivateBus session;
    PrivateBus system;

protected:
    Compositor compositor;
};

class SwayDesktop : public WlrootsDesktop<Sway> {
public:
    SwayDesktop()
        : bar({.words = {"swaybar", "--bar_id", "bar-0"},
               .environment = environment(),
               .log = std::filesystem::path(environment().at("XDG_RUNTIME_DIR")) / "bar.log"}) {
        bus().waitForName(watcher.name);
    }

    void showSecondWorkspace() override { compositor.command("workspace 2"); }

    // By default, sway only marks the window as urgent.
    void allowActivation() override { compositor.command("focus_on_window_activation focus"); }

    bool showsStatusItem() const override {
        const OwnedVariant items =
            property(bus().connection(), watcher, "RegisteredStatusNotifierItems");
        return items != nullptr && g_variant_n_children(items.get()) > 0;
    }

private:
    const Callee watcher{"org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                         "org.kde.StatusNotifierWatcher"};
    Program bar;
};

// GNOME Shell 45 introduced a new module format for extensions.
std::filesystem::path extensionForThisShell() {
    constexpr std::string_view before = "GNOME Shell ";
    constexpr int firstVersionOfModules = 45;
    const RuntimeFolder folder;
    Program shell({.words = {"gnome-shell", "--version"},
                   .environment = plainEnvironment(folder.path()),
                   .log = folder.path() / "log"});
    const std::string line = shell.nextLine().value_or("");
    EXPECT_TRUE(line.starts_with(before)) << line;
    const int version = std::atoi(line.substr(std::min(line.size(), before.size())).c_str());
    return std::filesystem::path(GLIDEMAP_GNOME_EXTENSION_FORMS) /
           (version >= firstVersionOfModules ? "from-45" : "up-to-44") / "glidemap@glidemap";
}

class GnomeDesktop : public WaylandDesktop {
public:
    GnomeDesktop() {
        shell.addExtension(extensionForThisShell());
        shell.start();
    }

    Environment environment() const override { return shell.environment(); }
    const PrivateBus& bus() const override { return shell.bus(); }

    void activate(const std::string& application) override {
        waitUntilWindowsAreShown();
        shell.evaluate(windowOf(application) +
                       ".activate(global.display.get_current_time_roundtrip())");
    }

    void minimize(const std::string& application) override {
        shell.evaluate(windowOf(application) + ".minimize()");
    }

    void showSecondWorkspace() override {
        shell.evaluate("global.workspace_manager.append_new_workspace(true, "
                       "global.display.get_current_time_roundtrip())");
    }

    // Requests a token for the current time, as GNOME's dash does when the user clicks an icon.
    std::string activationToken() const override {
        const std::string quoted =
            shell.evaluate("global.create_app_launch_context(global.display.get_current_time_"
                           "roundtrip(), -1).get_startup_notify_id(imports.gi.Gio.AppInfo."
                           "create_from_commandline('glidemap', 'Glidemap', "
                           "imports.gi.Gio.AppInfoCreateFlags.SUPPORTS_STARTUP_NOTIFICATION), [])");
        return quoted.size() > 2 ? quoted.substr(1, quoted.size() - 2) : "";
    }

    bool isOverviewOpen() const override { return shell.isOverviewOpen(); }

private:
    // The shell lists a window before it shows the window. When it shows the window, it also
    // focuses the window, even if another window was activated in between.
    void waitUntilWindowsAreShown() const {
        EXPECT_TRUE(waitUntil([this] {
            return shell.evaluate("global.get_window_actors().every(actor => actor.visible || "
                                  "!actor.meta_window.showing_on_its_workspace() || "
                                  "!actor.meta_window.located_on_workspace("
                                  "global.workspace_manager.get_active_workspace()))") == "true";
        })) << "a window is not shown";
    }

    static std::string windowOf(const std::string& application) {
        return "global.get_window_actors().map(actor => actor.meta_window).find(window => "
               "window.get_wm_class() === '" +
               application + "')";
    }

    GnomeShell shell{GnomeShell::Eval::allowed};
};

class KWinDesktop : public WaylandDesktop {
public:
    KWinDesktop() {
        kwin.installThisProgram();
        kwin.start();
        kwin.waitUntilReady();
    }

    Environment environment() const override {
        Environment values = kwin.environment();
        values["DBUS_SYSTEM_BUS_ADDRESS"] = system.address();
        return values;
    }

    const PrivateBus& bus() const override { return kwin.bus(); }

    void activate(const std::string& application) override {
        forEachWindowOf(application, "if (isSix) {\n    workspace.activeWindow = each;\n} else {\n"
                                     "    workspace.activeClient = each;\n}\n");
    }

    void minimize(const std::string& application) override {
        forEachWindowOf(application, "each.minimized = true;\n");
    }

    void showSecondWorkspace() override {
        run("workspace.createDesktop(1, \"second\");\n"
            "workspace.currentDesktop = isSix ? workspace.desktops[1] : 2;\n");
    }

    bool isOverviewOpen() const override {
        const OwnedVariant effects =
            property(bus().connection(), {"org.kde.KWin", "/Effects", "org.kde.kwin.Effects"},
                     "activeEffects");
        for (std::size_t at = 0; effects && at < g_variant_n_children(effects.get()); ++at) {
            if (textOf(childOf(effects, at)) == "overview") {
                return true;
            }
        }
        return false;
    }

    // The overview needs OpenGL, and KWin 6 uses OpenGL only on a machine with a graphics device.
    std::string whyNoOverview() const override {
        const std::string type = textOf(property(
            bus().connection(), {"org.kde.KWin", "/Compositor", "org.kde.kwin.Compositing"},
            "compositingType"));
        return type == "qpainter" ? "KWin draws without OpenGL here" : "";
    }

    bool isLocked() const override {
        const OwnedVariant answer =
            call(bus().connection(),
                 {"org.freedesktop.ScreenSaver", "/ScreenSaver", "org.freedesktop.ScreenSaver"},
                 "GetActive");
        return answer != nullptr && isTrue(childOf(answer, 0));
    }

private:
    void forEachWindowOf(const std::string& application, const std::string& statement) {
        run("const all = isSix ? workspace.windowList() : workspace.clientList();\n"
            "for (const each of all.filter(one => one.resourceClass == \"" +
            application + "\")) {\n" + statement + "}\n");
    }

    // Plasma 6 changed the D-Bus paths of scripts, so the function tries both paths. Returns once
    // KWin has run the script.
    void run(const std::string& script) {
        const std::string name = "test-" + std::to_string(++scripts);
        const std::filesystem::path file =
            std::filesystem::path(kwin.environment().at("XDG_RUNTIME_DIR")) / (name + ".js");
        std::ofstream(file) << "const isSix = workspace.windowList !== undefined;\n" << script;
        const OwnedVariant loaded(bus().call("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting",
                                             "loadScript",
                                             g_variant_new("(ss)", file.c_str(), name.c_str())));
        const std::string number = std::to_string(g_variant_get_int32(childOf(loaded, 0).get()));
        for (const std::string& path : {"/Scripting/Script" + number, "/" + number}) {
            call(bus().connection(), {"org.kde.KWin", path.c_str(), "org.kde.kwin.Script"}, "run");
        }
    }

    KWin kwin{KWin::Extent::whole};
    PrivateBus system;
    int scripts = 0;
};

} // namespace

std::unique_ptr<Desktop> startGnomeShell() {
    return std::make_unique<GnomeDesktop>();
}

std::unique_ptr<Desktop> startKWin() {
    return std::make_unique<KWinDesktop>();
}

std::unique_ptr<Desktop> startSway() {
    return std::make_unique<SwayDesktop>();
}

std::unique_ptr<Desktop> startLabwc() {
    return std::make_unique<WlrootsDesktop<Labwc>>();
}

} // namespace glidemap::test
