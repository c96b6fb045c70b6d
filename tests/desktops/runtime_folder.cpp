#include "desktops/runtime_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace glidemap::test {

RuntimeFolder::RuntimeFolder(std::optional<uid_t> owner) {
    if (owner) {
        EXPECT_EQ(chown(path().c_str(), *owner, static_cast<gid_t>(-1)), 0);
    }
}

void RuntimeFolder::giveToTest() const {
    EXPECT_EQ(chown(path().c_str(), geteuid(), static_cast<gid_t>(-1)), 0);
}

} // namespace glidemap::test
