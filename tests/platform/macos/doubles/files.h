// Controls the fake bundle and the fake user folders.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

struct Files {
    enum class Information { none, empty, version, manifestWithoutTextVersion };

    Information information = Information::version;
    std::string version = "1.4.2";
    std::vector<std::string> applicationSupport; // paths
    std::optional<std::string> program;          // the program's path
};

// Returns the state of the fakes. The fixture's set-up resets it.
Files& files();

// Releases the fake main bundle and the fake default file manager.
void closeFiles();

} // namespace glidemap::test
