#include "desktops/application_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace glidemap {

namespace {

namespace fs = std::filesystem;

// Replaces the file atomically, as a package manager does.
fs::path write(const fs::path& path, const std::string& content) {
    const fs::path beside = path.string() + ".new";
    std::ofstream stream(beside, std::ios::binary);
    stream << content;
    stream.close();
    EXPECT_FALSE(stream.fail()) << beside;
    fs::rename(beside, path);
    return path;
}

std::string entry(const std::string& keys) {
    return "[Desktop Entry]\nType=Application\n" + keys;
}

} // namespace

ApplicationFolder& ApplicationFolder::instance() {
    static ApplicationFolder folder;
    return folder;
}

ApplicationFolder::ApplicationFolder() {
    for (const char* const name : {"user/applications", "system/applications", "config", "home"})
        fs::create_directories(root / name);
    setenv("XDG_DATA_HOME", (root / "user").c_str(), 1);
    setenv("XDG_DATA_DIRS", (root / "system").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", (root / "config").c_str(), 1);
    setenv("HOME", (root / "home").c_str(), 1);
}

void ApplicationFolder::clear() const {
    for (const char* const name : {"user/applications", "system/applications"}) {
        for (const auto& file : fs::directory_iterator(root / name))
            fs::remove_all(file.path());
    }
}

fs::path ApplicationFolder::install(const std::string& identifier, const std::string& keys) const {
    return write(root / "user/applications" / (identifier + ".desktop"), entry(keys));
}

fs::path ApplicationFolder::installForAll(const std::string& identifier,
                                          const std::string& keys) const {
    return write(root / "system/applications" / (identifier + ".desktop"), entry(keys));
}

void ApplicationFolder::remove(const std::string& identifier) const {
    fs::remove(root / "user/applications" / (identifier + ".desktop"));
}

fs::path ApplicationFolder::script(const std::string& name, const std::string& content) const {
    const fs::path path = write(root / name, "#!/bin/sh\n" + content);
    fs::permissions(path, fs::perms::owner_all);
    return path;
}

} // namespace glidemap
