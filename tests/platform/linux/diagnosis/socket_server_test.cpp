#include "desktops/silent_socket.h"
#include "kit/temporary_folder.h"
#include "platform/linux/diagnosis/socket_server.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace glidemap {
namespace {

std::string ownName() {
    std::ifstream file("/proc/self/comm");
    std::string name;
    std::getline(file, name);
    return name;
}

TEST(SocketServerTest, ReturnsTheNameOfAProgramThatListensButNeverAccepts) {
    const test::SilentSocket listening;
    const std::string path = listening.address().substr(std::string("unix:path=").size());
    for (int times = 0; times < 20; ++times) { // more connections than the backlog holds
        const std::string name = programListeningOn(path);
        EXPECT_TRUE(name == ownName() || (times > 8 && name.empty())) << name;
    }
}

TEST(SocketServerTest, ReturnsAnEmptyNameIfNoProgramListens) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(programListeningOn(""), "");
    EXPECT_EQ(programListeningOn(folder.path() / "nothing"), "");
    EXPECT_EQ(programListeningOn("@glidemap-test-nothing"), "");
    EXPECT_EQ(programListeningOn("/" + std::string(200, 'x')), "");
}

} // namespace
} // namespace glidemap
