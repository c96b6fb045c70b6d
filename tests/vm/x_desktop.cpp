#include "x_desktop.h"

#include "deadline.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace glidemap::vm {

namespace {

constexpr const char* serverProgram = "/usr/lib/xorg/Xorg";
constexpr const char* windowManagerProgram = "/usr/bin/openbox";
constexpr const char* logFile = "/run/xorg.log";
constexpr const char* screen = ":7";

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Waits until a file that another program writes has the text in it.
bool waitForText(const std::filesystem::path& file, const std::string& text) {
    const int changes = inotify_init1(IN_CLOEXEC);
    inotify_add_watch(changes, file.c_str(), IN_MODIFY);
    const Deadline deadline(std::chrono::seconds(30));
    bool found = contentsOf(file).find(text) != std::string::npos;
    while (!found && !deadline.passed()) {
        pollfd waited{changes, POLLIN, 0};
        char events[4096];
        if (poll(&waited, 1, deadline.milliseconds()) > 0 &&
            read(changes, events, sizeof events) < 0) {
            break;
        }
        found = contentsOf(file).find(text) != std::string::npos;
    }
    close(changes);
    return found;
}

} // namespace

bool XDesktop::isInstalled() {
    return std::filesystem::exists(serverProgram) && std::filesystem::exists(windowManagerProgram);
}

XDesktop::XDesktop() {
    running = startServer() && startWindowManager();
    EXPECT_TRUE(running) << contentsOf(logFile);
}

XDesktop::~XDesktop() {
    windowManager.reset();
    server.reset();
}

bool XDesktop::startServer() {
    server = std::make_unique<Process>(std::vector<std::string>{
        serverProgram, screen, "-config", GLIDEMAP_XORG_CONFIGURATION, "-logfile", logFile,
        "-displayfd", "1", "-noreset", "-nolisten", "tcp", "-novtswitch", "-sharevts"});
    setenv("DISPLAY", screen, 1);
    return server->waitForOutput("7").has_value();
}

bool XDesktop::startWindowManager() {
    windowManager = std::make_unique<Process>(std::vector<std::string>{
        windowManagerProgram, "--sm-disable", "--startup", "echo manages windows"});
    return windowManager->waitForOutput("manages windows").has_value();
}

bool XDesktop::waitForDevice(const std::string& node) const {
    return waitForText(logFile, "(" + node + ")");
}

} // namespace glidemap::vm
