// What a test tells the doubles of Foundation about the program's bundle and the user's folders.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace glidemap::doubles {

struct Files {
    enum class Information { none, empty, version, versionThatIsNoText };

    Information information = Information::version;
    std::string version = "1.4.2";
    std::vector<std::string> applicationSupport; // paths
    std::optional<std::string> program;          // its path
};

// Reset by every test's set-up.
Files& files();

// Makes the shared objects go.
void closeFiles();

} // namespace glidemap::doubles
