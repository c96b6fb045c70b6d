#include "x_desktop.h"

#include "file_changes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace glidemap::test {

namespace {

constexpr const char* serverProgram = "/usr/lib/xorg/Xorg";
constexpr const char* windowManagerProgram = "/usr/bin/openbox";
constexpr const char* logFile = "/run/xorg.log";
constexpr const char* screen = ":7";

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
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

// The server writes to its log after it has opened a device, so each change of the log triggers a
// check.
bool XDesktop::waitForDevice(const std::string& node) const {
    const std::string process = std::to_string(server->id());
    return waitForChanges({logFile}, [&] { return hasOpen(process, node); });
}

} // namespace glidemap::test
