#include "desktops/kwin.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace glidemap::test {

namespace {

constexpr const char* installed = "/usr/bin/kwin_wayland";

// KWin finds desktop entries only through a menu.
constexpr const char* menuOfAllEntries = R"(<!DOCTYPE Menu PUBLIC "-//freedesktop//DTD Menu 1.0//EN"
 "http://www.freedesktop.org/standards/menu-spec/1.0/menu.dtd">
<Menu><Name>All</Name><DefaultAppDirs/><Include><All/></Include></Menu>
)";

void write(const std::filesystem::path& path, const std::string& content) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream stream(path);
    stream << content;
    stream.close();
    EXPECT_FALSE(stream.fail()) << path;
}

} // namespace

bool KWin::isInstalled() {
    return test::isInstalled("kwin_wayland");
}

KWin::KWin(Extent wanted) : extent(wanted), settings(plainEnvironment(folder.path())) {
    settings["DBUS_SESSION_BUS_ADDRESS"] = sessionBus.address();
    settings["WAYLAND_DISPLAY"] = "wayland-kwin";
    settings["XDG_CURRENT_DESKTOP"] = "KDE";
    // The tests run a copy, which lacks the installed file's capability. A machine that withholds
    // the capability refuses to execute the installed file. Also, the kernel clears the death
    // signal when a process executes a file with a capability, so the process could outlive the
    // test.
    std::filesystem::copy_file(installed, folder.path() / "kwin_wayland");
}

void KWin::installThisProgram(const std::string& interfaces) const {
    write(std::filesystem::path(settings.at("XDG_CONFIG_HOME")) / "menus/applications.menu",
          menuOfAllEntries);
    write(std::filesystem::path(settings.at("XDG_DATA_HOME")) / "applications/test.desktop",
          "[Desktop Entry]\nType=Application\nName=Test\nExec=" +
              std::filesystem::read_symlink("/proc/self/exe").string() +
              "\nX-KDE-Wayland-Interfaces=" + interfaces + "\n");
}

void KWin::start() {
    Environment environment = settings;
    environment.erase("WAYLAND_DISPLAY");
    environment["KWIN_COMPOSE"] = extent == Extent::whole ? "O2" : "Q";
    environment["LIBGL_ALWAYS_SOFTWARE"] = "1";
    std::vector<std::string> words = {
        folder.path() / "kwin_wayland", "--virtual", "--width", "1280", "--height", "800"};
    if (extent == Extent::windows) {
        words.emplace_back("--no-lockscreen");
    }
    words.insert(words.end(), {"--socket", settings.at("WAYLAND_DISPLAY"),
                               folder.write("ready.sh", "#!/bin/sh\necho ready\n")});
    program.emplace(Program::Command{
        .words = words, .environment = environment, .log = folder.path() / "kwin.log"});
    std::filesystem::permissions(folder.path() / "ready.sh", std::filesystem::perms::owner_all);
}

void KWin::waitUntilReady() {
    EXPECT_EQ(program->nextLine(), "ready");
}

} // namespace glidemap::test
