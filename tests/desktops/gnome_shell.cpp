#include "desktops/gnome_shell.h"

#include "desktops/ready_socket.h"

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>

namespace glidemap::test {

namespace {

constexpr const char* python = "/usr/bin/python3"; // finds the distribution's modules
constexpr const char* pythonMock = "/usr/lib/python3/dist-packages/dbusmock";
constexpr const char* loginName = "org.freedesktop.login1";
constexpr const char* shellName = "org.gnome.Shell";
constexpr const char* shellPath = "/org/gnome/Shell";
constexpr const char* properties = "org.freedesktop.DBus.Properties";

} // namespace

std::optional<std::string> GnomeShell::missing() {
    if (!isInstalled("gnome-shell")) {
        return "gnome-shell";
    }
    if (!std::filesystem::exists(pythonMock)) {
        return "python3-dbusmock";
    }
    return std::nullopt;
}

GnomeShell::GnomeShell(Eval permission)
    : eval(permission), settings(plainEnvironment(folder.path())) {
    settings["DBUS_SESSION_BUS_ADDRESS"] = sessionBus.address();
    settings["DBUS_SYSTEM_BUS_ADDRESS"] = systemBus.address();
    settings["GSETTINGS_BACKEND"] = "keyfile";
    settings["NO_AT_BRIDGE"] = "1";
    settings["WAYLAND_DISPLAY"] = "wayland-gnome";
    settings["XDG_CURRENT_DESKTOP"] = "GNOME";
    addLoginSession();
}

// The shell does not start without a login session.
void GnomeShell::addLoginSession() {
    loginService.emplace(
        Program::Command{.words = {python, "-m", "dbusmock", "--system", "--template", "logind"},
                         .environment = settings,
                         .log = folder.path() / "login.log"});
    systemBus.waitForName(loginName);
    g_variant_unref(systemBus.call(
        loginName, "/org/freedesktop/login1", "org.freedesktop.DBus.Mock", "AddSession",
        g_variant_new("(ssusb)", "c1", "seat0", getuid(), "user", TRUE)));
}

void GnomeShell::start() {
    const ReadySocket ready(folder.path() / "ready");
    Environment environment = settings;
    environment.erase("WAYLAND_DISPLAY");
    environment["LIBGL_ALWAYS_SOFTWARE"] = "1";
    environment["NOTIFY_SOCKET"] = folder.path() / "ready";
    std::vector<std::string> words = {
        "gnome-shell",       "--headless", "--wayland",         "--no-x11",
        "--virtual-monitor", "1280x800",   "--wayland-display", settings.at("WAYLAND_DISPLAY")};
    if (eval == Eval::allowed) {
        words.emplace_back("--unsafe-mode");
    }
    program.emplace(Program::Command{
        .words = words, .environment = environment, .log = folder.path() / "shell.log"});
    ready.waitUntilReady();
    closeOverview();
}

void GnomeShell::addExtension(const std::filesystem::path& form) const {
    namespace fs = std::filesystem;
    const std::string uuid = form.filename();
    const fs::path installed = folder.path() / "data/gnome-shell/extensions" / uuid;
    fs::create_directories(installed);
    fs::copy(form, installed, fs::copy_options::recursive);
    fs::create_symlink(fs::read_symlink("/proc/self/exe"), installed / "program");
    folder.write("config/glib-2.0/settings/keyfile",
                 "[org/gnome/shell]\nenabled-extensions=['" + uuid + "']\n");
}

std::string GnomeShell::evaluate(const std::string& expression) const {
    GVariant* const answer = sessionBus.call(shellName, shellPath, shellName, "Eval",
                                             g_variant_new("(s)", expression.c_str()));
    gboolean succeeded = FALSE;
    const char* value = "";
    g_variant_get(answer, "(b&s)", &succeeded, &value);
    EXPECT_TRUE(succeeded) << expression << ": " << value;
    std::string copy = value;
    g_variant_unref(answer);
    return copy;
}

void GnomeShell::disableExtension(const std::string& uuid) const {
    g_variant_unref(sessionBus.call(shellName, shellPath, "org.gnome.Shell.Extensions",
                                    "DisableExtension", g_variant_new("(s)", uuid.c_str())));
}

// The shell opens its overview on startup, but only after it has reported that it is ready.
void GnomeShell::closeOverview() const {
    waitForOverview(true);
    g_variant_unref(sessionBus.call(
        shellName, shellPath, properties, "Set",
        g_variant_new("(ssv)", shellName, "OverviewActive", g_variant_new_boolean(FALSE))));
    waitForOverview(false);
}

void GnomeShell::waitForOverview(bool open) const {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (isOverviewOpen() != open) {
        ASSERT_LT(std::chrono::steady_clock::now(), deadline)
            << "the overview stays " << (open ? "closed" : "open");
    }
}

bool GnomeShell::isOverviewOpen() const {
    GVariant* const answer = sessionBus.call(shellName, shellPath, properties, "Get",
                                             g_variant_new("(ss)", shellName, "OverviewActive"));
    GVariant* value = nullptr;
    g_variant_get(answer, "(v)", &value);
    const bool open = g_variant_get_boolean(value) != FALSE;
    g_variant_unref(value);
    g_variant_unref(answer);
    return open;
}

} // namespace glidemap::test
