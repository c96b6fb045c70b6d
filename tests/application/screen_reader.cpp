#include "screen_reader.h"

#include "kit/temporary_folder.h"
#include "waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>

namespace glidemap::test {

namespace {

constexpr const char* program = "orca";
constexpr std::string_view mark = "SPEECH OUTPUT: '";

// Orca 43 and 47 log one of these lines when they begin to process events. A window that appears
// earlier, while Orca searches for an active window, may be read incompletely.
constexpr auto loopStarts = std::to_array<std::string_view>(
    {"ORCA: Starting ATSPI registry", "ORCA: Starting Atspi main event loop"});

// Orca loads this file on startup. It opens Orca's log with line buffering, so that each line is
// written immediately.
constexpr const char* customizations = R"(import os
import orca.debug
orca.debug.debugLevel = orca.debug.LEVEL_INFO
orca.debug.debugFile = open(os.environ["GLIDEMAP_SPEECH"], "w", buffering=1)
)";

void write(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

std::filesystem::path logOf(const ApplicationStage& stage) {
    return stage.folder() / "speech.log";
}

} // namespace

bool ScreenReader::isInstalled() {
    return test::isInstalled(program);
}

Program::Command ScreenReader::commandOn(const ApplicationStage& stage) {
    const std::filesystem::path data = stage.folder() / "orca-data";
    write(data / "orca" / "orca-customizations.py", customizations);
    // Orca uses pgrep to search for other screen readers of this user. This fake pgrep finds none,
    // not even those on other displays.
    const std::filesystem::path tools = stage.folder() / "tools";
    write(tools / "pgrep", "#!/bin/sh\nexit 1\n");
    std::filesystem::permissions(tools / "pgrep", std::filesystem::perms::owner_all);
    Environment environment = stage.environment();
    environment["PATH"] = tools.string() + ":" + environment["PATH"];
    environment["XDG_DATA_HOME"] = data;
    environment["GLIDEMAP_SPEECH"] = logOf(stage);
    return {.words = {program}, .environment = environment, .log = stage.folder() / "orca.log"};
}

ScreenReader::ScreenReader(const ApplicationStage& stage)
    : log(logOf(stage)), orca(commandOn(stage)) {
    EXPECT_TRUE(waitUntil([&] { return isListening(); }))
        << contentOf(stage.folder() / "orca.log") << transcript();
}

bool ScreenReader::isListening() const {
    const std::string lines = contentOf(log);
    return std::ranges::any_of(
        loopStarts, [&](std::string_view line) { return lines.find(line) != std::string::npos; });
}

bool ScreenReader::hears(const std::vector<std::string>& parts) {
    return waitUntil([&] { return hasSpoken(parts); });
}

bool ScreenReader::hasSpoken(const std::vector<std::string>& parts) {
    const std::string spoken = transcript();
    std::size_t end = heard;
    for (const std::string& part : parts) {
        const std::size_t start = spoken.find(part, end);
        if (start == std::string::npos) {
            return false;
        }
        end = start + part.size();
    }
    heard = end;
    return true;
}

std::string ScreenReader::transcript() const {
    std::string spoken;
    std::ifstream file(log);
    for (std::string line; std::getline(file, line) && !file.eof();) { // only complete lines
        const std::size_t start = line.find(mark);
        if (start != std::string::npos) {
            spoken += line.substr(start + mark.size()) + '\n';
        }
    }
    return spoken;
}

} // namespace glidemap::test
