#include "desktops/runtime_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace glidemap::desktops {

RuntimeFolder::RuntimeFolder(std::optional<uid_t> owner) {
    // Not below a long path: the names of sockets have little room.
    std::string name = "/tmp/glidemap-desktop-XXXXXX";
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
    if (owner) {
        EXPECT_EQ(chown(name.c_str(), *owner, static_cast<gid_t>(-1)), 0);
    }
}

RuntimeFolder::~RuntimeFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::filesystem::path RuntimeFolder::write(const std::string& name,
                                           const std::string& content) const {
    const auto path = folder / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary);
    stream << content;
    stream.close();
    EXPECT_FALSE(stream.fail()) << path;
    return path;
}

} // namespace glidemap::desktops
